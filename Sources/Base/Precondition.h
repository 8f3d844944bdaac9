#pragma once

#include <cstdint>

namespace tervale {

/// Stops the process when `condition` does not hold: the caller broke a rule of the interface.
/// Active in every build. `message` goes to standard error with the caller's place in the code.
void precondition(bool condition, const char* message, const char* file = __builtin_FILE(),
                  int line = __builtin_LINE());

/// `value` without its fraction. A value that is NaN, infinite or outside the signed 64-bit range
/// is a programming error.
std::int64_t truncatedToInteger(double value, const char* file = __builtin_FILE(),
                                int line = __builtin_LINE());

/// `value` rounded to the nearest integer, halves away from zero; the same values are errors.
std::int64_t roundedToInteger(double value, const char* file = __builtin_FILE(),
                              int line = __builtin_LINE());

} // namespace tervale
