#pragma once

#include "TervaleWindow/Gauges/BarLayerView.h"
#include "TervaleWindow/Gauges/Gauge.h"

namespace tervale {

/// A temperature as a thin bar, empty at 20 °C and full at 100 °C. As wide as its container lets it
/// be. Its owner names it for accessibility, after what it measures.
class ThermalBar : public BarLayerView, public Gauge {
    Q_OBJECT

  public:
    /// `height` in logical pixels.
    explicit ThermalBar(int height, QWidget* parent = nullptr);

    /// In °C.
    void setValue(double celsius);
    double value() const { return lastValue; }

    QString reading() const override;
    QSize sizeHint() const override;

  private:
    double lastValue = 0;
};

} // namespace tervale
