#include "Profiles/Profile.h"

#include "Base/Overloaded.h"

#include <algorithm>

namespace tervale {

namespace {

std::size_t combined(std::size_t seed, std::size_t value) {
    // The golden ratio in 64 bits spreads small values over the whole word.
    return static_cast<std::size_t>((seed ^ value) * 0x9E3779B97F4A7C15ULL + (seed >> 7));
}

} // namespace

std::string TemperatureInput::title() const {
    return std::string(group.title()) + (average ? " average" : " hottest");
}

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

bool Window::covers(std::int64_t minute) const {
    if (start < end)
        return start <= minute && minute < end;
    return minute >= start || minute < end;
}

const Profile* findProfile(std::span<const Profile> profiles, const UUID& id) {
    const auto found = std::ranges::find(profiles, id, &Profile::id);
    return found == profiles.end() ? nullptr : &*found;
}

} // namespace tervale

std::size_t std::hash<tervale::TemperatureInput>::operator()(
    const tervale::TemperatureInput& input) const noexcept {
    return tervale::combined(std::hash<tervale::SensorGroup>{}(input.group),
                             std::hash<bool>{}(input.average));
}

std::size_t std::hash<tervale::Action>::operator()(const tervale::Action& action) const noexcept {
    const std::size_t payload = std::visit(
        tervale::overloaded{
            [](const tervale::action::Automatic&) { return std::size_t{0}; },
            [](const tervale::action::Fixed& fixed) { return std::hash<double>{}(fixed.speed); },
            [](const tervale::action::Profile& profile) {
                return std::hash<tervale::UUID>{}(profile.id);
            },
        },
        action);
    return tervale::combined(action.index(), payload);
}
