#pragma once

#include "Platform/SymbolMask.h"

#include <optional>
#include <string>

namespace tervale {

/// One of the system's symbols by its name, such as "fan.fill", centred and as large as it fits;
/// `weight` of 1 is regular. Nothing where the system has no symbol of that name. Main thread.
std::optional<SymbolMask> systemSymbol(const std::string& name, int side, double weight);

} // namespace tervale
