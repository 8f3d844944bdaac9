#pragma once

#include <optional>

namespace tervale {

/// How many columns the terminal has that this file descriptor leads to; 80 for one that does not
/// tell, nothing if it leads to none.
std::optional<int> terminalColumns(int descriptor);

} // namespace tervale
