#include "TervaleWindow/Appearance/Theme.h"

#include "Base/ThemeColors.h"

namespace tervale {

namespace {

QColor opaque(const SRGB& color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue));
}

} // namespace

QColor Theme::accent() {
    static const QColor color = opaque(themeColors::accent);
    return color;
}

QColor Theme::thermal(double celsius) {
    return opaque(themeColors::thermal(celsius));
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
