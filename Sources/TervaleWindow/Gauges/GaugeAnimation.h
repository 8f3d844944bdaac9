#pragma once

#include "TervaleWindow/Gauges/FrameTimes.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class QWidget;

namespace tervale {

/// A number on its way from what a gauge shows to what it shall show.
struct Transition {
    double from = 0;
    double to = 0;

    /// `progress` runs from 0 to 1. A number that is not finite cannot be approached and is taken
    /// on at once.
    double at(double progress) const;
    /// How far it goes; 0 where a number is not finite.
    double distance() const;
};

/// The clock of one gauge's transitions. It runs only while somebody can see the gauge; where
/// nobody can, and where the user asked for less motion, every transition is at its end at once. It
/// wakes for the frames that show something new and no others, all gauges with the same refreshes;
/// at rest it holds no timer. Main thread; a child of the gauge.
class GaugeAnimation : public QObject {
    Q_OBJECT

  public:
    explicit GaugeAnimation(QWidget& seen);

    /// Starts from the beginning, whether or not one was running. `distance` is the way of what
    /// goes farthest, in logical pixels.
    void begin(double distance);
    /// Goes to the end at once, if one is running.
    void finish();
    /// Ends without a frame.
    void stop();
    bool isRunning() const { return running; }
    /// How far the transitions have come on the easing curve; 1 at rest.
    double progress() const;
    /// When the next frame is due, in milliseconds since the beginning.
    double nextFrame() const { return frames.after(shown); }
    /// Shows the frame of so many milliseconds since the beginning, unless a later one is shown.
    void advanceTo(double milliseconds);

  signals:
    /// The gauge is to show its transitions at `progress`.
    void advanced();

  private:
    void arm();

    QWidget& gauge;
    QElapsedTimer sinceBeginning;
    QTimer timer;
    FrameTimes frames;
    double shown = 0;
    bool running = false;
};

} // namespace tervale
