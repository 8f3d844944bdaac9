#pragma once

#include "TervaleWindow/Gauges/ArcLayout.h"
#include "TervaleWindow/Gauges/GaugeAnimation.h"

#include <QWidget>

namespace tervale {

/// The arc of a dial: a groove, the part that is filled, and a tick. Its square is the widget less
/// the overhang of the tick on every side. Every new state is animated, an equal one too.
class ArcLayerView : public QWidget {
    Q_OBJECT

  public:
    explicit ArcLayerView(QWidget* parent = nullptr);

    /// Both from 0 to 1, or NaN.
    void set(double fill, double tick);
    double fill() const { return fillTransition.to; }
    double tick() const { return tickTransition.to; }
    /// What is on screen, somewhere between the last state and the new one while it is animated.
    ArcState shown() const { return shownState; }
    bool isAnimating() const { return animation.isRunning(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    ArcLayout layoutOfSquare() const;
    double distance() const;
    void advance();

    Transition fillTransition;
    Transition tickTransition;
    ArcState shownState;
    GaugeAnimation animation;
};

} // namespace tervale
