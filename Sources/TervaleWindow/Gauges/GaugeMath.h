#pragma once

#include "Base/ClosedRange.h"

namespace tervale {

/// The temperatures between which a thermal bar fills, in °C.
inline constexpr ClosedRange thermalBarRange{20, 100};

/// Where `value` lies in `range`: 0 at its lower end, 1 at its upper one, clamped to them. NaN
/// where the range has no width and `value` lies on it.
double fractionOf(double value, ClosedRange range);

/// The angle of a dial's tick in degrees, anticlockwise from the top: 135 at 0, -135 at 1.
double tickAngle(double tick);

/// How far a dial's arc runs clockwise from its lower left end, in degrees; 0 for NaN.
double arcSweep(double fill);

/// The lit length of a bar: never shorter than the bar is high, so that its cold end always shows.
double litLength(double fraction, double width, double height);

} // namespace tervale
