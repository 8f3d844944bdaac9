#pragma once

#include <limits>

namespace tervale::test {

/// What a sensor gives that has gone, and an unfinished division.
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace tervale::test
