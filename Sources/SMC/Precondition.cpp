#include "SMC/Precondition.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tervale {

void precondition(bool condition, const char* message, std::source_location place) {
    if (condition)
        return;
    std::fprintf(stderr, "%s:%u: %s\n", place.file_name(), static_cast<unsigned>(place.line()),
                 message);
    std::abort();
}

std::int64_t truncatedToInteger(double value, std::source_location place) {
    // 2^63 is exact as a double, and the largest double below it fits.
    constexpr double limit = 9223372036854775808.0;
    precondition(value >= -limit && value < limit,
                 "a number that is no 64-bit integer was used as one", place);
    return static_cast<std::int64_t>(value);
}

std::int64_t roundedToInteger(double value, std::source_location place) {
    return truncatedToInteger(std::round(value), place);
}

} // namespace tervale
