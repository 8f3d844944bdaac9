#include "Base/ThemeColors.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>

namespace tervale {

namespace {

struct Stop {
    double celsius;
    SRGB color;
};

constexpr std::array stops{
    Stop{30, {0.3, 0.55, 0.96}},
    Stop{50, {0.13, 0.71, 0.65}},
    Stop{70, {0.91, 0.64, 0.23}},
    Stop{90, {0.9, 0.33, 0.24}},
};

SRGB between(const Stop& low, const Stop& high, double celsius) {
    const double fraction = (celsius - low.celsius) / (high.celsius - low.celsius);
    const auto mix = [fraction](double from, double to) { return from + fraction * (to - from); };
    return {mix(low.color.red, high.color.red), mix(low.color.green, high.color.green),
            mix(low.color.blue, high.color.blue)};
}

std::uint32_t byteOf(double component) {
    return static_cast<std::uint32_t>(std::lround(component * 255));
}

} // namespace

std::uint32_t SRGB::number() const {
    return byteOf(red) << 16U | byteOf(green) << 8U | byteOf(blue);
}

std::string SRGB::hex() const {
    char text[16];
    std::snprintf(text, sizeof text, "#%06x", number());
    return text;
}

SRGB themeColors::thermal(double celsius) {
    // The ends come first, so that they are exact and everything outside is clamped to them.
    if (celsius <= stops.front().celsius)
        return stops.front().color;
    if (celsius >= stops.back().celsius)
        return stops.back().color;
    for (std::size_t upper = 1; upper < stops.size(); ++upper) {
        if (celsius <= stops[upper].celsius)
            return between(stops[upper - 1], stops[upper], celsius);
    }
    // Only NaN lies in no segment; it must not reach the colour's components.
    return stops.back().color;
}

} // namespace tervale
