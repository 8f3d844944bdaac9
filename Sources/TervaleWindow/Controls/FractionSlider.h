#pragma once

#include "TervaleWindow/Controls/SliderGesture.h"

#include <QSet>
#include <QSlider>
#include <QStyle>

namespace tervale {

/// A horizontal slider over 0.0 to 1.0, the toolkit's own over finer steps than there are pixels.
/// Whatever moves it, be it a pointer, a key with its repeats or assistive technology, is one
/// gesture: `editingChanged(true)` when it begins and `editingChanged(false)` exactly once when it
/// is over. Arrows move by 1 %, page keys by 10 %; a press beside the knob brings it there. The
/// wheel is the pane's, to scroll with. Assistive technology sees whole percents, 0 to 100.
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
    QRect part(QStyle::SubControl part) const;
    /// The step at which the middle of the knob stands at `x`.
    int stepAt(int x) const;
    void followSteps(int step);
    void report(const SliderGesture::Reports& reports);
    void endEveryGesture();

    double shown = 0;
    SliderGesture gesture;
    /// From the middle of the knob to where it was taken hold of.
    QPointF grip;
    QSet<int> heldKeys;
};

} // namespace tervale
