#pragma once

#include "Base/ClosedRange.h"

#include <QString>

class QWidget;

namespace tervale {

struct GaugeReading {
    double value = 0;
    ClosedRange range;
    /// The value as people read it, with its unit.
    QString text;
};

/// A widget that shows one value between limits.
class Gauge {
  public:
    virtual ~Gauge() = default;
    virtual GaugeReading reading() const = 0;
};

/// Tells assistive technology, if there is any, that a gauge's value has changed.
void announceReading(QWidget& gauge, double value);

} // namespace tervale
