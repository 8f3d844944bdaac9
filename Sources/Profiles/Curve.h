#pragma once

#include "JSON/JSONForward.h"

#include <vector>

namespace tervale {

/// One knot of a curve.
struct CurvePoint {
    /// Degrees Celsius (valid 0 to 120) or percent load (valid 0 to 100).
    double x = 0;
    /// Fraction of the fan's range (valid 0 to 1).
    double speed = 0;

    bool operator==(const CurvePoint&) const = default;
};

/// Fan speed as a function of one reading: straight between its points, flat outside them.
struct Curve {
    /// In the order the user placed them.
    std::vector<CurvePoint> points;

    /// The speed at `x`, as a fraction. Takes any list of points; never clamps.
    double speed(double x) const;

    bool operator==(const Curve&) const = default;
};

void write(JSONWriter& json, const CurvePoint& point);
void write(JSONWriter& json, const Curve& curve);
CurvePoint read(const JSONReader& json, Type<CurvePoint>);
Curve read(const JSONReader& json, Type<Curve>);

} // namespace tervale
