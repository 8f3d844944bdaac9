#pragma once

#include <cstdint>
#include <source_location>

namespace tervale {

/// Stops the process when `condition` does not hold: the caller broke a rule of the interface.
/// Active in every build. `message` goes to standard error with the caller's place in the code.
void precondition(bool condition, const char* message,
                  std::source_location place = std::source_location::current());

/// `value` without its fraction. A value that is NaN, infinite or outside the signed 64-bit range
/// is a programming error.
std::int64_t truncatedToInteger(double value,
                                std::source_location place = std::source_location::current());

/// `value` rounded to the nearest integer, halves away from zero; the same values are errors.
std::int64_t roundedToInteger(double value,
                              std::source_location place = std::source_location::current());

} // namespace tervale
