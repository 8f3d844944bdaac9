#pragma once

#include <QEasingCurve>
#include <QVariantAnimation>

class QWidget;

namespace tervale {

/// A number on its way from what a gauge shows to what it shall show.
struct Transition {
    double from = 0;
    double to = 0;

    /// `progress` runs from 0 to 1. A number that is not finite cannot be approached and is taken
    /// on at once.
    double at(double progress) const;
};

/// The timing that all gauges share: a cubic Bézier curve over `gaugeDuration`.
const QEasingCurve& gaugeEasing();
inline constexpr int gaugeDuration = 600; // milliseconds

/// The clock of one gauge's transitions. It runs only while somebody can see the gauge; where
/// nobody can, every transition is at its end at once. At rest it holds no timer. Main thread; a
/// child of the gauge.
class GaugeAnimation : public QVariantAnimation {
    Q_OBJECT

  public:
    explicit GaugeAnimation(QWidget& seen);

    /// Starts from the beginning, whether or not one was running.
    void begin();
    /// Goes to the end at once, if one is running.
    void finish();
    /// How far the transitions have come on the easing curve; 1 at rest.
    double progress() const;

  signals:
    /// The gauge is to show its transitions at `progress`. At most about 30 times a second.
    void advanced();

  protected:
    void updateCurrentValue(const QVariant& value) override;

  private:
    QWidget& gauge;
    int lastFrame = 0;
};

} // namespace tervale
