#pragma once

#include "TervaleWindow/Accessibility/AccessibleChildren.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"

#include <QAccessible>
#include <QPointer>

#include <cstddef>

namespace tervale {

/// The point at a fixed place of a curve, or one of its values; invalid while the curve has fewer
/// points. It can be chosen.
class AccessibleCurvePart : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    /// What is within has no place of its own.
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  protected:
    AccessibleCurvePart(CurveCanvas& owner, std::size_t place) : canvas(&owner), place(place) {}

    /// Of a part that is valid.
    const CurvePoint& point() const { return canvas->state().curve.points[place]; }

    QPointer<CurveCanvas> canvas;
    std::size_t place;
};

/// A point, named such as "Point 2 of 4, 60 °C, 35%". It has no value of its own: no desktop knows
/// one that goes in two directions.
class AccessibleCurvePoint final : public AccessibleCurvePart {
  public:
    AccessibleCurvePoint(CurveCanvas& owner, std::size_t place);

    QAccessible::Role role() const override { return QAccessible::Grouping; }
    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    mutable AccessibleChildren values;
};

/// One value of a point, to be raised, lowered and set. Each change is a step of its own.
class AccessibleCurveValue final : public AccessibleCurvePart, public QAccessibleValueInterface {
  public:
    enum class Axis { x, speed };

    AccessibleCurveValue(CurveCanvas& owner, std::size_t place, Axis axis);

    QAccessible::Role role() const override { return QAccessible::Slider; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

    /// A speed is counted in percent.
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant minimumValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumStepSize() const override { return 1.0; }

  private:
    double number() const;
    QString shownText() const;
    void moveBy(double difference);

    Axis axis;
};

} // namespace tervale
