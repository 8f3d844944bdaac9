#include "TervaleWindow/Profiles/AccessibleCurvePoint.h"

#include "TervaleWindow/Accessibility/AccessibleReading.h"
#include "TervaleWindow/Profiles/CurveDrawing.h"

#include <cmath>

namespace tervale {

namespace {

QString addAction() {
    return CurveCanvas::tr("Add Point");
}

QString removeAction() {
    return CurveCanvas::tr("Remove Point");
}

/// Later, since the points are others then, and whoever called has still to return through one.
template <class Edit>
void editLater(CurveCanvas& canvas, const Edit& edit) {
    QMetaObject::invokeMethod(
        &canvas, [&canvas, edit] { edit(canvas); }, Qt::QueuedConnection);
}

} // namespace

bool AccessibleCurvePart::isValid() const {
    return canvas && place < canvas->state().curve.points.size();
}

QWindow* AccessibleCurvePart::window() const {
    return isValid() ? QAccessible::queryAccessibleInterface(canvas)->window() : nullptr;
}

QRect AccessibleCurvePart::rect() const {
    if (!isValid())
        return {};
    const PlotPoint middle = CurvePlot{canvas->plot(), canvas->state().range}.position(point());
    const auto radius = static_cast<int>(CurvePlot::hitRadius);
    QRect knot(0, 0, 2 * radius, 2 * radius);
    knot.moveCenter(QPointF(middle.x, middle.y).toPoint());
    return {canvas->mapToGlobal(knot.topLeft()), knot.size()};
}

QAccessible::State AccessibleCurvePart::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    const bool chosen = canvas->state().chosen == place;
    state.focusable = state.selectable = true;
    state.disabled = !canvas->isEnabled();
    state.selected = chosen;
    state.focused = chosen && canvas->hasFocus();
    state.invisible = !canvas->isVisible();
    state.offscreen = canvas->visibleRegion().isEmpty();
    return state;
}

void* AccessibleCurvePart::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface && isValid()
               ? static_cast<QAccessibleActionInterface*>(this)
               : nullptr;
}

QStringList AccessibleCurvePart::actionNames() const {
    return isValid() && canvas->isEnabled() ? QStringList{setFocusAction()} : QStringList();
}

void AccessibleCurvePart::doAction(const QString& name) {
    if (name == setFocusAction() && isValid())
        canvas->choosePoint(place);
}

AccessibleCurvePoint::AccessibleCurvePoint(CurveCanvas& owner, std::size_t place)
    : AccessibleCurvePart(owner, place),
      values([&owner, place](int value) {
          using Axis = AccessibleCurveValue::Axis;
          return new AccessibleCurveValue(owner, place, value == 0 ? Axis::x : Axis::speed);
      }) {}

QAccessibleInterface* AccessibleCurvePoint::parent() const {
    return QAccessible::queryAccessibleInterface(canvas);
}

int AccessibleCurvePoint::childCount() const {
    return isValid() ? 2 : 0;
}

QAccessibleInterface* AccessibleCurvePoint::child(int index) const {
    return index >= 0 && index < childCount() ? values.at(index) : nullptr;
}

int AccessibleCurvePoint::indexOfChild(const QAccessibleInterface* child) const {
    return values.indexOf(child);
}

QString AccessibleCurvePoint::text(QAccessible::Text kind) const {
    if (!isValid() || kind != QAccessible::Name)
        return {};
    return CurveCanvas::tr("Point %1 of %2, %3")
        .arg(QString::number(place + 1), QString::number(canvas->state().curve.points.size()),
             QString::fromStdString(positionText(point(), canvas->unitShown())));
}

QStringList AccessibleCurvePoint::actionNames() const {
    QStringList names = AccessibleCurvePart::actionNames();
    if (names.isEmpty())
        return names;
    names << pressAction();
    if (!canvas->state().full())
        names << addAction();
    if (canvas->state().canRemove())
        names << removeAction();
    return names;
}

void AccessibleCurvePoint::doAction(const QString& name) {
    if (!actionNames().contains(name))
        return;
    const std::size_t here = place;
    if (name == addAction())
        editLater(*canvas, [here](CurveCanvas& curve) { curve.addPointAfter(here); });
    else if (name == removeAction())
        editLater(*canvas, [here](CurveCanvas& curve) { curve.removePoint(here); });
    else
        canvas->choosePoint(here);
}

AccessibleCurveValue::AccessibleCurveValue(CurveCanvas& owner, std::size_t place, Axis axis)
    : AccessibleCurvePart(owner, place),
      axis(axis) {}

QAccessibleInterface* AccessibleCurveValue::parent() const {
    QAccessibleInterface* curve = QAccessible::queryAccessibleInterface(canvas);
    return curve ? curve->child(static_cast<int>(place)) : nullptr;
}

QString AccessibleCurveValue::text(QAccessible::Text kind) const {
    if (!isValid())
        return {};
    if (kind == QAccessible::Value)
        return shownText();
    if (kind != QAccessible::Name)
        return {};
    const QString number = QString::number(place + 1);
    if (axis == Axis::speed)
        return CurveCanvas::tr("Fan speed, point %1").arg(number);
    return isLoadUnit(canvas->unitShown()) ? CurveCanvas::tr("Load, point %1").arg(number)
                                           : CurveCanvas::tr("Temperature, point %1").arg(number);
}

QAccessible::State AccessibleCurveValue::state() const {
    QAccessible::State state = AccessibleCurvePart::state();
    // The keyboard is at the point.
    state.focusable = state.focused = state.selectable = state.selected = false;
    return state;
}

void* AccessibleCurveValue::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ValueInterface && isValid()
               ? static_cast<QAccessibleValueInterface*>(this)
               : AccessibleCurvePart::interface_cast(type);
}

QStringList AccessibleCurveValue::actionNames() const {
    return isValid() && canvas->isEnabled() ? QStringList{increaseAction(), decreaseAction()}
                                            : QStringList();
}

void AccessibleCurveValue::doAction(const QString& name) {
    if (!actionNames().contains(name))
        return;
    moveBy(name == increaseAction() ? 1 : -1);
}

QVariant AccessibleCurveValue::currentValue() const {
    return isValid() ? accessibleReading(number(), shownText()) : QVariant();
}

void AccessibleCurveValue::setCurrentValue(const QVariant& value) {
    bool isNumber = false;
    const double wanted = value.toDouble(&isNumber);
    if (isNumber && std::isfinite(wanted) && isValid() && canvas->isEnabled())
        moveBy(wanted - number());
}

QVariant AccessibleCurveValue::minimumValue() const {
    if (!isValid())
        return {};
    return axis == Axis::speed ? 0.0 : canvas->state().lowestX(place);
}

QVariant AccessibleCurveValue::maximumValue() const {
    if (!isValid())
        return {};
    return axis == Axis::speed ? 100.0 : canvas->state().highestX(place);
}

double AccessibleCurveValue::number() const {
    return axis == Axis::speed ? std::round(point().speed * 100) : point().x;
}

QString AccessibleCurveValue::shownText() const {
    return QString::fromStdString(axis == Axis::speed ? speedText(point().speed)
                                                      : unitText(point().x, canvas->unitShown()));
}

void AccessibleCurveValue::moveBy(double difference) {
    if (axis == Axis::speed)
        canvas->movePoint(place, 0, difference);
    else
        canvas->movePoint(place, difference, 0);
}

} // namespace tervale
