#pragma once

#include <cstddef>
#include <string>

namespace tervale {

/// A fraction as a bar of block characters.
namespace bar {

/// In characters, for a fraction of 1 and above.
inline constexpr std::size_t length = 24;

/// As long as the fraction, to an eighth of a character; empty for 0, less than 0 and NaN.
std::string text(double fraction);

} // namespace bar

} // namespace tervale
