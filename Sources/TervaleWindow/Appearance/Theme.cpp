#include "TervaleWindow/Appearance/Theme.h"

#include <array>

namespace tervale {

namespace {

struct Stop {
    double celsius;
    double red;
    double green;
    double blue;
};

constexpr std::array stops{
    Stop{30, 0.3, 0.55, 0.96},
    Stop{50, 0.13, 0.71, 0.65},
    Stop{70, 0.91, 0.64, 0.23},
    Stop{90, 0.9, 0.33, 0.24},
};

QColor opaque(double red, double green, double blue) {
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                            static_cast<float>(blue));
}

QColor colorOf(const Stop& stop) {
    return opaque(stop.red, stop.green, stop.blue);
}

QColor between(const Stop& low, const Stop& high, double celsius) {
    const double fraction = (celsius - low.celsius) / (high.celsius - low.celsius);
    const auto mix = [fraction](double from, double to) { return from + fraction * (to - from); };
    return opaque(mix(low.red, high.red), mix(low.green, high.green), mix(low.blue, high.blue));
}

} // namespace

QColor Theme::accent() {
    static const QColor color = opaque(0.1, 0.43, 0.94);
    return color;
}

QColor Theme::thermal(double celsius) {
    // The ends come first, so that they are exact and everything outside is clamped to them.
    if (celsius <= stops.front().celsius)
        return colorOf(stops.front());
    if (celsius >= stops.back().celsius)
        return colorOf(stops.back());
    for (std::size_t upper = 1; upper < stops.size(); ++upper) {
        if (celsius <= stops[upper].celsius)
            return between(stops[upper - 1], stops[upper], celsius);
    }
    // Only NaN lies in no segment; it must not reach the colour's components.
    return colorOf(stops.back());
}

QGradientStops Theme::thermalGradient(ClosedRange over) {
    if (!(over.span() > 0))
        return {{0.0, thermal(over.lower)}};
    QGradientStops result;
    const double step = over.span() * 0.125;
    // Each stop is reckoned from the lower end, so that rounding does not add up; the ninth is left
    // out where it still comes to lie beyond the upper end.
    for (int index = 0; index <= 8; ++index) {
        const double celsius = over.lower + index * step;
        if (celsius <= over.upper)
            result.append({(celsius - over.lower) / over.span(), thermal(celsius)});
    }
    return result;
}

} // namespace tervale
