#pragma once

#include "TervaleWindow/Controls/SliderGesture.h"

#include <QSet>
#include <QSlider>
#include <QTimer>

#include <chrono>

namespace tervale {

/// A horizontal slider over 0.0 to 1.0. Whatever moves it, be it a pointer, a key with its repeats,
/// a turn of the wheel or assistive technology, is one gesture: `editingChanged(true)` when it
/// begins and `editingChanged(false)` exactly once when it is over. Arrows move by 1 %, page keys
/// by 10 %. The wheel moves it only while it has the focus, so that a pane can be scrolled over it.
/// Assistive technology sees whole percents, 0 to 100.
class FractionSlider : public QSlider {
    Q_OBJECT

  public:
    /// The steps of QSlider's own, integer value.
    static constexpr int resolution = 10000;

    explicit FractionSlider(QWidget* parent = nullptr);

    double fraction() const;
    /// Shows a value, clamped to 0...1, without either of the signals below.
    void setFraction(double fraction);
    bool isEditing() const;
    /// How long the wheel must rest for its gesture to be over.
    void setWheelPause(std::chrono::milliseconds pause);
    /// One whole gesture that ends at `fraction`.
    void moveAtOnce(double fraction);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    void editingChanged(bool editing);
    /// The user moved it.
    void fractionChanged(double fraction);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void report(const SliderGesture::Reports& reports);
    void endEveryGesture();
    void show(double fraction);
    void move(double fraction);

    double shown = 0;
    SliderGesture gesture;
    /// From the middle of the knob to where it was taken hold of.
    qreal grip = 0;
    QSet<int> heldKeys;
    /// The part of the wheel's turn that was too small to show yet, in steps.
    double wheelRest = 0;
    QTimer wheelTimer;
};

} // namespace tervale
