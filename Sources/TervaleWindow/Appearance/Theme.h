#pragma once

#include "Base/ClosedRange.h"

#include <QBrush>
#include <QColor>

namespace tervale {

/// The window's own colours: one accent, and the ramp from temperature to colour. In sRGB.
struct Theme {
    static QColor accent();
    /// From blue at 30 °C over teal and amber to red at 90 °C; the end colours outside.
    static QColor thermal(double celsius);
    /// Nine stops of the ramp, spread evenly over a range of temperatures.
    static QGradientStops thermalGradient(ClosedRange over);
};

} // namespace tervale
