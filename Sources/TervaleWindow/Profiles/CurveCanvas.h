#pragma once

#include "TervaleWindow/Profiles/CurveEditing.h"
#include "TervaleWindow/Profiles/KeyBurst.h"

#include <QPointF>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// The plot of a curve, edited by pointer and keys. It shows the curve that it was given and asks
/// for what is to be done to it. The point under the pointer is marked. Pressing takes hold of a
/// point or adds one, a double click removes one. Left and Right choose a point; arrows with Alt
/// move it by one unit or one percent, with Shift as well by ten; Insert or + adds one after it;
/// Delete removes it. Assistive technology sees each point with its values.
class CurveCanvas final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int canvasHeight = 240;

    /// `unit` is "°C" or "%".
    CurveCanvas(ClosedRange range, const QString& unit, PlotInsets insets,
                QWidget* parent = nullptr);

    const CurveEditing& state() const { return editing; }
    /// Shows another curve without any signal. One that differs ends the gesture, unless it comes
    /// as the answer to `edited`.
    void setCurve(const Curve& curve);
    /// What assistive technology does to the point of that index, if there is one and the pointer
    /// holds none. Each is complete at once.
    void movePoint(std::size_t index, double units, double percent);
    void addPointAfter(std::size_t index);
    void removePoint(std::size_t index);
    /// The focus comes with it.
    void choosePoint(std::size_t index);
    /// The current input value, if it is known.
    void setMarker(std::optional<double> value);
    /// The chosen point, such as "60 °C, 35%"; empty while none is chosen.
    QString chosenPosition() const;
    const std::string& unitShown() const { return unit; }
    /// The plot in the canvas's coordinates.
    PlotRect plot() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    /// The user wants this done to the curve, whose owner shows what came of it by `setCurve`.
    void edited(const tervale::CurveEdit& edit);
    /// What was edited so far is complete: a gesture of the pointer, or a burst of key presses.
    void settled();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    using EditingStep = std::function<std::optional<CurveEdit>(CurveEditing&)>;
    enum class Press { single, second };
    struct Gesture {
        QPointF start;
        Press press;
    };

    void beginGesture(QMouseEvent& event, Press press);
    void dragTo(QPointF location);
    /// Lets go of the point; what was done may go on with the next gesture.
    void letGo();
    void endGesture();
    /// What a click left open is complete: the next thing that is done is another one.
    void closeClick();
    /// Marks the point under the pointer, which is beside the canvas without a location.
    void hover(std::optional<QPointF> location);
    bool editByKey(const QKeyEvent& event);
    void insertByKey();
    void removeByKey();
    /// Runs one step of the state machine, and tells everybody what it changed.
    void edit(const EditingStep& step);
    void editPoint(std::size_t index, const EditingStep& step);
    void choose(CurveEditing::Direction direction);
    /// Tells assistive technology of what it does not know yet.
    void tell();
    void tellArrival();
    void showPosition();
    /// Where the chosen point is, or else the middle.
    QPointF chosenPlace() const;
    /// Says why no point is added.
    void showFull(QPointF location);

    CurveEditing editing;
    std::string unit;
    PlotInsets insets;
    std::optional<double> marker;
    std::optional<Gesture> gesture;
    /// Where the pointer is on the canvas.
    std::optional<QPointF> pointer;
    /// The last gesture was a click, which may be the first half of a double click.
    bool clicked = false;
    KeyBurst moves;
    /// What comes by `setCurve` is the answer to an edit.
    bool asking = false;
    // What assistive technology knows.
    std::vector<CurvePoint> toldPoints;
    std::optional<std::size_t> toldChosen;
    /// The focus has come, and the chosen point is told right after it.
    bool arriving = false;
};

} // namespace tervale
