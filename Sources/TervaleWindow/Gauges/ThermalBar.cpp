#include "TervaleWindow/Gauges/ThermalBar.h"

#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Gauges/GaugeMath.h"

namespace tervale {

ThermalBar::ThermalBar(int height, QWidget* parent) : BarLayerView(parent) {
    makeGaugesAccessible();
    setFixedHeight(height);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
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
    return celsius(lastValue);
}

GaugeReading ThermalBar::gaugeReading() const {
    return {lastValue, thermalBarRange};
}

QSize ThermalBar::sizeHint() const {
    return {120, height()};
}

} // namespace tervale
