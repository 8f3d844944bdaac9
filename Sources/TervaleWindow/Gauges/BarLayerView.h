#pragma once

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Gauges/GaugeAnimation.h"

#include <QPainter>
#include <QWidget>

namespace tervale {

/// Paints a groove over `bounds` and the thermal ramp over its first `lit` pixels.
void paintBar(QPainter& painter, const QRectF& bounds, double lit, const Colors& colors);

/// A bar over the whole widget, lit with the thermal ramp up to a fraction of its width. A fraction
/// that differs from the last one is animated; an equal one is passed over.
class BarLayerView : public QWidget {
    Q_OBJECT

  public:
    explicit BarLayerView(QWidget* parent = nullptr);

    /// From 0 to 1.
    void setFraction(double fraction);
    double fraction() const { return lastFraction; }
    /// How many pixels from its left end are lit on screen just now.
    double shownLength() const { return length; }
    bool isAnimating() const { return animation.isRunning(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    double targetLength() const;
    void advance();

    double lastFraction = 0;
    Transition lengthTransition;
    double length = 0;
    GaugeAnimation animation;
};

} // namespace tervale
