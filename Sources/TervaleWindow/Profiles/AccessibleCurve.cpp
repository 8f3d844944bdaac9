#include "TervaleWindow/Profiles/AccessibleCurve.h"

#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Profiles/AccessibleCurvePoint.h"

#include <QAccessibleWidget>

namespace tervale {

namespace {

class AccessibleCurve final : public QAccessibleWidget {
  public:
    explicit AccessibleCurve(CurveCanvas& described)
        : QAccessibleWidget(&described, QAccessible::Grouping),
          canvas(described),
          points([&described](int place) {
              return new AccessibleCurvePoint(described, static_cast<std::size_t>(place));
          }) {}

    int childCount() const override { return static_cast<int>(canvas.state().curve.points.size()); }
    QAccessibleInterface* child(int index) const override {
        return index >= 0 && index < childCount() ? points.at(index) : nullptr;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint here = canvas.mapFromGlobal(QPoint(x, y));
        const CurveEditing& editing = canvas.state();
        const auto found = CurvePlot{canvas.plot(), editing.range}.nearest(
            {static_cast<double>(here.x()), static_cast<double>(here.y())}, editing.curve);
        return found ? child(static_cast<int>(*found)) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return points.indexOf(child);
    }
    QAccessibleInterface* focusChild() const override {
        const auto chosen = canvas.state().chosen;
        return canvas.hasFocus() && chosen ? child(static_cast<int>(*chosen)) : nullptr;
    }

    /// From now on there are others.
    void renewPoints() { points.renew(); }

  private:
    const CurveCanvas& canvas;
    mutable AccessibleChildren points;
};

void tellOfPoint(CurveCanvas& canvas, std::size_t place, QAccessible::Event kind) {
    QAccessibleEvent event(&canvas, kind);
    event.setChild(static_cast<int>(place));
    QAccessible::updateAccessibility(&event);
}

void tellValue(QAccessibleInterface* value) {
    QAccessibleValueChangeEvent event(value, value->valueInterface()->currentValue());
    QAccessible::updateAccessibility(&event);
}

/// Where the keyboard is at the point, a screen reader speaks of its name; one that is at a value
/// of it speaks of that.
void tellMove(CurveCanvas& canvas, std::size_t place, const CurvePoint& from) {
    tellOfPoint(canvas, place, QAccessible::NameChanged);
    QAccessibleInterface* curve = QAccessible::queryAccessibleInterface(&canvas);
    const QAccessibleInterface* point = curve->child(static_cast<int>(place));
    const CurvePoint& to = canvas.state().curve.points[place];
    if (to.x != from.x)
        tellValue(point->child(0));
    if (to.speed != from.speed)
        tellValue(point->child(1));
}

} // namespace

void registerAccessibleCurve() {
    registerAccessible(makeAccessible<CurveCanvas, AccessibleCurve>);
}

void tellCurvePoints(CurveCanvas& canvas, const std::vector<CurvePoint>& before) {
    const std::vector<CurvePoint>& points = canvas.state().curve.points;
    if (points.size() != before.size()) {
        // All have other names, and one of another name would be spoken of by each.
        static_cast<AccessibleCurve*>(QAccessible::queryAccessibleInterface(&canvas))
            ->renewPoints();
        QAccessibleEvent event(&canvas, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&event);
        return;
    }
    for (std::size_t place = 0; place < points.size(); ++place) {
        if (points[place] != before[place])
            tellMove(canvas, place, before[place]);
    }
}

void tellChosenPoint(CurveCanvas& canvas) {
    if (canvas.hasFocus() && canvas.state().chosen)
        tellOfPoint(canvas, *canvas.state().chosen, QAccessible::Focus);
}

} // namespace tervale
