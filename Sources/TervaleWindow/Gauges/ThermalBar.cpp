#include "TervaleWindow/Gauges/ThermalBar.h"

#include "TervaleWindow/Gauges/GaugeMath.h"

#include <cmath>

namespace tervale {

ThermalBar::ThermalBar(int height, QWidget* parent) : BarLayerView(parent) {
    setFixedHeight(height);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    makeGaugesAccessible();
}

void ThermalBar::setValue(double celsius) {
    const QString textBefore = gaugeText();
    lastValue = celsius;
    setFraction(fractionOf(celsius, thermalBarRange));
    if (gaugeText() != textBefore)
        announceGaugeValue(*this, celsius);
}

QString ThermalBar::gaugeText() const {
    // Halves away from zero, as everywhere a temperature is written out.
    return QString("%1 °C").arg(std::round(lastValue), 0, 'f', 0);
}

GaugeReading ThermalBar::gaugeReading() const {
    return {lastValue, thermalBarRange};
}

QSize ThermalBar::sizeHint() const {
    return {120, height()};
}

} // namespace tervale
