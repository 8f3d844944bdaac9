#include "Profiles/Curve.h"

#include "JSON/JSONReader.h"
#include "JSON/JSONWriter.h"

#include <algorithm>
#include <cstddef>

namespace tervale {

namespace {

/// The speed at an `x` beyond `lower` and not beyond `upper`.
double interpolated(const CurvePoint& lower, const CurvePoint& upper, double x) {
    if (x == upper.x)
        return upper.speed;
    const double speed =
        lower.speed + ((x - lower.x) * (upper.speed - lower.speed)) / (upper.x - lower.x);
    // Rounding must not carry the speed past the points that it lies between.
    const auto [least, most] = std::minmax(lower.speed, upper.speed);
    return std::clamp(speed, least, most);
}

} // namespace

// With NaN every test is false, which leaves the last point's speed.
double Curve::speed(double x) const {
    if (points.empty())
        return 0;
    if (x <= points.front().x)
        return points.front().speed;
    if (points.back().x <= x || points.size() == 1)
        return points.back().speed;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const CurvePoint& lower = points[i - 1];
        const CurvePoint& upper = points[i];
        if (x <= upper.x)
            return interpolated(lower, upper, x);
    }
    return points.back().speed;
}

void write(JSONWriter& json, const CurvePoint& point) {
    json.object([&] {
        json.member("x", point.x);
        json.member("speed", point.speed);
    });
}

CurvePoint read(const JSONReader& json, Type<CurvePoint>) {
    return {json.member<double>("x"), json.member<double>("speed")};
}

void write(JSONWriter& json, const Curve& curve) {
    json.object([&] { json.member("points", curve.points); });
}

Curve read(const JSONReader& json, Type<Curve>) {
    return {json.member<std::vector<CurvePoint>>("points")};
}

} // namespace tervale
