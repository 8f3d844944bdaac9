#include "TervaleWindow/Gauges/GaugeMath.h"

namespace tervale {

double fractionOf(double value, ClosedRange range) {
    const double fraction = (value - range.lower) / range.span();
    // Comparisons that NaN fails, so that it passes through.
    const double atLeastEmpty = fraction < 0 ? 0 : fraction;
    return atLeastEmpty > 1 ? 1 : atLeastEmpty;
}

double tickAngle(double tick) {
    return 135 - 270 * tick;
}

double arcSweep(double fill) {
    return fill > 0 ? 360 * (fill * 0.75) : 0;
}

double litLength(double fraction, double width, double height) {
    const double length = fraction * width;
    return length > height ? length : height;
}

} // namespace tervale
