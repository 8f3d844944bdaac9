#pragma once

#include <cmath>

namespace tervale {

/// The fraction that is shown as the same percentage, and has no more than that.
inline double wholePercent(double fraction) {
    return std::round(fraction * 100) / 100;
}

} // namespace tervale
