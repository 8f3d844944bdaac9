#pragma once

#include "Platform/SymbolMask.h"

#include <optional>
#include <string>

namespace tervale {

/// One of the system's symbols by its name, such as "fan.fill", in the middle of a square and in
/// the size that it has beside text of the square's height, shrunk only where it would not fit.
/// `weight` of 1 is regular, up to 1.2 medium, above semibold. Nothing where the system has no
/// symbol of that name. Main thread.
std::optional<SymbolMask> systemSymbol(const std::string& name, int side, double weight);

} // namespace tervale
