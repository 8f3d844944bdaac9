#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace tervale {

/// How `over` looks where it is painted onto `ground`.
inline QColor onto(const QColor& ground, const QColor& over) {
    const float share = over.alphaF();
    const auto mix = [share](float from, float to) { return from + share * (to - from); };
    return QColor::fromRgbF(mix(ground.redF(), over.redF()), mix(ground.greenF(), over.greenF()),
                            mix(ground.blueF(), over.blueF()));
}

/// From 0, black, to 1, white.
inline double luminance(const QColor& color) {
    const auto linear = [](float component) {
        const double value = static_cast<double>(component);
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// How far two luminances are apart, from 1 to 21.
inline double contrast(double first, double second) {
    const auto [low, high] = std::minmax(first, second);
    return (high + 0.05) / (low + 0.05);
}

/// The same for a colour that is painted onto a ground.
inline double contrast(const QColor& ground, const QColor& over) {
    return contrast(luminance(ground), luminance(onto(ground, over)));
}

} // namespace tervale
