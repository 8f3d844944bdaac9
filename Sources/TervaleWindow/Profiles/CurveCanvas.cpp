#include "TervaleWindow/Profiles/CurveCanvas.h"

#include "TervaleWindow/Controls/KeyTable.h"
#include "TervaleWindow/Profiles/AccessibleCurve.h"
#include "TervaleWindow/Profiles/CurvePainting.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QToolTip>

#include <utility>

namespace tervale {

namespace {

constexpr double smallStep = 1;
constexpr double largeStep = 10;
constexpr int smallestWidth = 200;

PlotPoint toPlotPoint(QPointF point) {
    return {point.x(), point.y()};
}

struct Step {
    double units = 0;
    double percent = 0;
};

std::optional<Step> stepOf(int key, double size) {
    switch (key) {
    case Qt::Key_Left:
        return Step{-size, 0};
    case Qt::Key_Right:
        return Step{size, 0};
    case Qt::Key_Up:
        return Step{0, size};
    case Qt::Key_Down:
        return Step{0, -size};
    default:
        return std::nullopt;
    }
}

} // namespace

CurveCanvas::CurveCanvas(ClosedRange range, const QString& unit, PlotInsets insets, QWidget* parent)
    : QWidget(parent),
      unit(unit.toStdString()),
      insets(insets) {
    registerAccessibleCurve();
    editing.range = range;
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(tr("Fan speed curve"));
    setAccessibleDescription(tr("Left and Right choose a point, arrows with Alt move it, Insert "
                                "adds one, Delete removes it."));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void CurveCanvas::setCurve(const Curve& curve) {
    if (curve == editing.curve)
        return;
    if (asking) {
        editing.follow(curve);
    } else {
        editing.replace(curve);
        endGesture();
    }
    hover(pointer);
    tell();
    update();
}

void CurveCanvas::movePoint(std::size_t index, double units, double percent) {
    editPoint(index, [units, percent](const CurveEditing& state) {
        return state.moveChosen(units, percent);
    });
}

void CurveCanvas::addPointAfter(std::size_t index) {
    editPoint(index, [](CurveEditing& state) { return state.insertAfterChosen(); });
}

void CurveCanvas::removePoint(std::size_t index) {
    editPoint(index, [](CurveEditing& state) { return state.removeChosen(); });
}

void CurveCanvas::editPoint(std::size_t index, const EditingStep& step) {
    if (gesture || index >= editing.curve.points.size())
        return;
    // Who edits a value is at that, and would be led away by the news of another point.
    editing.chosen = toldChosen = index;
    clicked = false;
    emit settled();
    edit(step);
    emit settled();
    update();
}

void CurveCanvas::choosePoint(std::size_t index) {
    if (gesture || index >= editing.curve.points.size())
        return;
    closeClick();
    edit([index](CurveEditing& state) {
        state.chosen = index;
        return std::nullopt;
    });
    setFocus(Qt::OtherFocusReason);
}

void CurveCanvas::setMarker(std::optional<double> value) {
    if (value == marker)
        return;
    marker = value;
    update();
}

QString CurveCanvas::chosenPosition() const {
    return editing.chosen
               ? QString::fromStdString(positionText(editing.curve.points[*editing.chosen], unit))
               : QString();
}

PlotRect CurveCanvas::plot() const {
    return inset({0, 0, static_cast<double>(width()), static_cast<double>(height())}, insets);
}

QSize CurveCanvas::sizeHint() const {
    return {2 * smallestWidth, canvasHeight};
}

QSize CurveCanvas::minimumSizeHint() const {
    return {smallestWidth, canvasHeight};
}

void CurveCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintCurve(painter, drawingOf(editing, unit, marker, plot()), rect(), palette(),
               hasFocus() ? KeyFocus::present : KeyFocus::absent);
}

void CurveCanvas::mousePressEvent(QMouseEvent* event) {
    beginGesture(*event, Press::single);
}

void CurveCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second press of two; it drags as the first one did, and removes once it is let go.
    beginGesture(*event, Press::second);
}

void CurveCanvas::beginGesture(QMouseEvent& event, Press press) {
    if (event.button() != Qt::LeftButton) {
        event.ignore();
        return;
    }
    // The release of the gesture before may have been lost.
    endGesture();
    // The two clicks of a double click are one thing.
    if (press == Press::single || !std::exchange(clicked, false))
        emit settled();
    clicked = false;
    gesture = Gesture{event.position(), press};
    dragTo(event.position());
    hover(event.position());
    // Here and at the release, before which the toolkit hides it: a tip that is shown when it is
    // told to hide would go a moment later, even if it is shown once more.
    if (!editing.dragging && editing.full())
        showFull(event.position());
}

void CurveCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton))
        endGesture();
    else if (gesture)
        dragTo(event->position());
    hover(event->position());
}

void CurveCanvas::leaveEvent(QEvent* event) {
    hover(std::nullopt);
    QWidget::leaveEvent(event);
}

void CurveCanvas::hover(std::optional<QPointF> location) {
    pointer = location;
    const auto before = editing.hovered;
    editing.hover(location ? std::optional(toPlotPoint(*location)) : std::nullopt, plot());
    if (editing.dragging)
        setCursor(Qt::ClosedHandCursor);
    else if (editing.hovered)
        setCursor(Qt::OpenHandCursor);
    else
        unsetCursor();
    if (editing.hovered != before)
        update();
}

void CurveCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (!gesture || event->button() != Qt::LeftButton)
        return;
    dragTo(event->position());
    // The curve may have been replaced by whoever heard of the last change.
    if (!gesture)
        return;
    const QPointF way = event->position() - gesture->start;
    const bool inPlace = way.manhattanLength() < QApplication::startDragDistance();
    const bool second = gesture->press == Press::second;
    const bool addedNone = !editing.dragging && editing.full();
    letGo();
    if (second && inPlace) {
        edit([this, event](CurveEditing& state) {
            return state.removePoint(toPlotPoint(event->position()), plot());
        });
    }
    clicked = !second && inPlace;
    if (!clicked)
        emit settled();
    hover(event->position());
    if (addedNone)
        showFull(event->position());
}

void CurveCanvas::dragTo(QPointF location) {
    if (!editing.dragging) {
        edit([this](CurveEditing& state) {
            return state.takeHold(toPlotPoint(gesture->start), plot());
        });
    }
    edit([this, location](CurveEditing& state) {
        return state.drag(toPlotPoint(location), plot());
    });
    if (editing.dragging)
        showPosition();
}

void CurveCanvas::letGo() {
    gesture.reset();
    editing.endDrag();
    QToolTip::hideText();
    update();
    hover(pointer);
}

void CurveCanvas::endGesture() {
    if (!gesture)
        return;
    letGo();
    emit settled();
}

void CurveCanvas::closeClick() {
    if (std::exchange(clicked, false))
        emit settled();
}

void CurveCanvas::keyPressEvent(QKeyEvent* event) {
    if (!gesture)
        closeClick();
    if (gesture || !editByKey(*event))
        QWidget::keyPressEvent(event);
}

bool CurveCanvas::editByKey(const QKeyEvent& event) {
    const bool far = isKeyOf(KeyCommand::movePointFar, event);
    const auto step = stepOf(event.key(), far ? largeStep : smallStep);
    if (step && (far || isKeyOf(KeyCommand::movePoint, event))) {
        if (moves.beginsWith(event))
            emit settled();
        edit([&step](CurveEditing& state) { return state.moveChosen(step->units, step->percent); });
        showPosition();
        return true;
    }
    if (isKeyOf(KeyCommand::choosePoint, event))
        choose(event.key() == Qt::Key_Left ? CurveEditing::Direction::left
                                           : CurveEditing::Direction::right);
    else if (isKeyOf(KeyCommand::addPoint, event))
        insertByKey();
    else if (isKeyOf(KeyCommand::removePoint, event))
        removeByKey();
    else
        return false;
    return true;
}

void CurveCanvas::insertByKey() {
    const bool wasFull = editing.full();
    edit([](CurveEditing& state) { return state.insertAfterChosen(); });
    emit settled();
    if (wasFull)
        showFull(chosenPlace());
}

void CurveCanvas::removeByKey() {
    // Moves of the point just before are steps of their own.
    emit settled();
    edit([](CurveEditing& state) { return state.removeChosen(); });
}

void CurveCanvas::focusInEvent(QFocusEvent* event) {
    // The toolkit tells of the canvas itself right after this event.
    arriving = true;
    QMetaObject::invokeMethod(this, &CurveCanvas::tellArrival, Qt::QueuedConnection);
    const bool byPointer = event->reason() == Qt::MouseFocusReason;
    if (!editing.chosen && !byPointer)
        choose(CurveEditing::Direction::right);
    QWidget::focusInEvent(event);
}

void CurveCanvas::focusOutEvent(QFocusEvent* event) {
    QToolTip::hideText();
    closeClick();
    QWidget::focusOutEvent(event);
}

void CurveCanvas::hideEvent(QHideEvent* event) {
    endGesture();
    hover(std::nullopt);
    QWidget::hideEvent(event);
}

void CurveCanvas::choose(CurveEditing::Direction direction) {
    edit([direction](CurveEditing& state) {
        state.choose(direction);
        return std::nullopt;
    });
}

void CurveCanvas::edit(const EditingStep& step) {
    // A position that is still shown may be another point's by now.
    if (!gesture)
        QToolTip::hideText();
    const auto chosen = editing.chosen;
    const auto dragging = editing.dragging;
    const std::optional<CurveEdit> wanted = step(editing);
    if (wanted) {
        const QScopedValueRollback guard(asking, true);
        emit edited(*wanted);
    }
    // The owner may have done otherwise.
    editing.holdWhatIsThere();
    if (editing.chosen != chosen || editing.dragging != dragging)
        update();
    tell();
}

void CurveCanvas::tell() {
    if (toldPoints == editing.curve.points && toldChosen == editing.chosen)
        return;
    const std::vector<CurvePoint> points = std::exchange(toldPoints, editing.curve.points);
    const auto chosen = std::exchange(toldChosen, editing.chosen);
    tellCurvePoints(*this, points);
    // A point that is spoken of as it is reached is not spoken of once more.
    if (!arriving && (toldChosen != chosen || toldPoints.size() != points.size()))
        tellChosenPoint(*this);
}

void CurveCanvas::tellArrival() {
    arriving = false;
    tellChosenPoint(*this);
}

QPointF CurveCanvas::chosenPlace() const {
    if (!editing.chosen)
        return rect().center();
    const PlotPoint point =
        CurvePlot{plot(), editing.range}.position(editing.curve.points[*editing.chosen]);
    return {point.x, point.y};
}

void CurveCanvas::showPosition() {
    if (editing.chosen)
        QToolTip::showText(mapToGlobal(chosenPlace().toPoint()), chosenPosition(), this);
}

void CurveCanvas::showFull(QPointF location) {
    QToolTip::showText(
        mapToGlobal(location.toPoint()),
        tr("A curve has at most %1 points. Remove one to add another.").arg(Profile::maxPoints),
        this);
}

} // namespace tervale
