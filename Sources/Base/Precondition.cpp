#include "Base/Precondition.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tervale {

void precondition(bool condition, const char* message, const char* file, int line) {
    if (condition)
        return;
    std::fprintf(stderr, "%s:%d: %s\n", file, line, message);
    std::abort();
}

std::int64_t truncatedToInteger(double value, const char* file, int line) {
    // 2^63 is exact as a double, and the largest double below it fits.
    constexpr double limit = 9223372036854775808.0;
    precondition(value >= -limit && value < limit,
                 "a number that is no 64-bit integer was used as one", file, line);
    return static_cast<std::int64_t>(value);
}

std::int64_t roundedToInteger(double value, const char* file, int line) {
    return truncatedToInteger(std::round(value), file, line);
}

} // namespace tervale
