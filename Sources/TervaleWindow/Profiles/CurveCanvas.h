#pragma once

#include "TervaleWindow/Profiles/CurveEditing.h"

#include <QPointF>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>

namespace tervale {

/// The plot of a curve, edited by pointer and keys. Pressing takes hold of a point or adds one, a
/// double click removes one. Left and Right choose a point; arrows with Alt move it by one unit or
/// one percent, with Shift as well by ten; Insert or + adds one after it; Delete removes it.
class CurveCanvas final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int canvasHeight = 240;

    /// `unit` is "°C" or "%".
    CurveCanvas(ClosedRange range, const QString& unit, PlotInsets insets,
                QWidget* parent = nullptr);

    const CurveEditing& state() const { return editing; }
    /// Shows another curve without any signal. One that differs ends the gesture.
    void setCurve(const Curve& curve);
    /// The current input value, if it is known.
    void setMarker(std::optional<double> value);
    /// The chosen point, such as "60 °C, 35%"; empty while none is chosen.
    QString chosenPosition() const;
    /// The plot in the canvas's coordinates.
    PlotRect plot() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    /// The user changed it.
    void curveChanged(const tervale::Curve& curve);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    enum class Press { single, second };
    struct Gesture {
        QPointF start;
        Press press;
    };

    void beginGesture(QMouseEvent& event, Press press);
    void dragTo(QPointF location);
    void endGesture();
    bool editByKey(const QKeyEvent& event);
    /// Runs an edit, and tells everybody what it changed.
    void edit(const std::function<void(CurveEditing&)>& change);
    void tellPosition();
    void showPosition();

    CurveEditing editing;
    std::string unit;
    PlotInsets insets;
    std::optional<double> marker;
    std::optional<Gesture> gesture;
};

} // namespace tervale
