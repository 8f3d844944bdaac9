#include "TervaleWindow/Gauges/ThermalBar.h"

#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Gauges/GaugeMath.h"

namespace tervale {

ThermalBar::ThermalBar(int height, QWidget* parent) : BarLayerView(parent) {
    setFixedHeight(height);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ThermalBar::setValue(double celsius) {
    const QString textBefore = reading().text;
    lastValue = celsius;
    setFraction(fractionOf(celsius, thermalBarRange));
    if (reading().text != textBefore)
        announceReading(*this, celsius);
}

GaugeReading ThermalBar::reading() const {
    return {.value = lastValue, .range = thermalBarRange, .text = celsius(lastValue)};
}

QSize ThermalBar::sizeHint() const {
    return {120, height()};
}

} // namespace tervale
