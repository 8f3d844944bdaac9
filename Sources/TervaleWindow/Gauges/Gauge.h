#pragma once

#include <QString>

class QWidget;

namespace tervale {

/// A widget that shows one reading, which nobody sets.
class Gauge {
  public:
    virtual ~Gauge() = default;
    /// As people read it, with its unit, such as "58 °C".
    virtual QString reading() const = 0;
};

/// Tells assistive technology, if there is any, that a gauge reads otherwise now. It reads that
/// anew when somebody comes to the gauge, and says nothing by itself.
void tellReading(QWidget& gauge);

} // namespace tervale
