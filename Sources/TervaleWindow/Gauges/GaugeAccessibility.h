#pragma once

#include "Base/ClosedRange.h"

#include <QString>

class QWidget;

namespace tervale {

struct GaugeReading {
    double value = 0;
    ClosedRange range;
};

/// A widget that assistive technology reads as a value that only it shows and nobody sets.
class AccessibleGauge {
  public:
    virtual ~AccessibleGauge() = default;
    /// With its unit.
    virtual QString gaugeText() const = 0;
    virtual GaugeReading gaugeReading() const = 0;
};

/// Teaches the toolkit to describe gauges. Done once; further calls do nothing.
void makeGaugesAccessible();

/// Tells assistive technology, if there is any, that a gauge's value has changed.
void announceGaugeValue(QWidget& gauge, double value);

} // namespace tervale
