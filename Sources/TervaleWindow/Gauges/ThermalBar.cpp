#include "TervaleWindow/Gauges/ThermalBar.h"

#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Gauges/GaugeMath.h"

namespace tervale {

ThermalBar::ThermalBar(int height, QWidget* parent) : BarLayerView(parent) {
    setFixedHeight(height);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ThermalBar::setValue(double celsius) {
    const QString before = reading();
    lastValue = celsius;
    setFraction(fractionOf(celsius, thermalBarRange));
    if (reading() != before)
        tellReading(*this);
}

QString ThermalBar::reading() const {
    return celsius(lastValue);
}

QSize ThermalBar::sizeHint() const {
    return {120, height()};
}

} // namespace tervale
