#include "TervaleWindow/Sensors/AccessibleSensorSection.h"

#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Accessibility/AccessibleReading.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Gauges/GaugeMath.h"
#include "TervaleWindow/Sensors/SensorSectionCard.h"

#include <QAccessibleWidget>
#include <QPointer>

namespace tervale {

namespace {

/// The row at a fixed place of a section; invalid while there are fewer rows.
class AccessibleSensorRow final : public QAccessibleInterface, public QAccessibleValueInterface {
  public:
    AccessibleSensorRow(SensorSectionCard& owner, int place) : card(&owner), index(place) {}

    bool isValid() const override { return card && index < card->rowCount(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return isValid() ? parent()->window() : nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(card);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString&) override {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : nullptr;
    }

    QString text(QAccessible::Text kind) const override {
        if (!isValid())
            return {};
        if (kind == QAccessible::Name)
            return row().name;
        // Some screen readers say an item's description only, others its value only.
        if (kind == QAccessible::Value || kind == QAccessible::Description)
            return celsius(row().value);
        return {};
    }

    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect place = card->sectionLayout().row(index).row;
        return {card->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        state.readOnly = true;
        state.focusable = true;
        state.focused = card->currentRow() == index;
        state.invisible = !card->isVisible();
        state.offscreen = !card->visibleRegion().intersects(card->sectionLayout().row(index).row);
        return state;
    }

    QVariant currentValue() const override {
        return isValid() ? accessibleReading(row().value, celsius(row().value)) : QVariant();
    }
    void setCurrentValue(const QVariant&) override {}
    QVariant minimumValue() const override { return thermalBarRange.lower; }
    QVariant maximumValue() const override { return thermalBarRange.upper; }
    QVariant minimumStepSize() const override { return {}; }

  private:
    const SensorRow& row() const { return card->section().rows[static_cast<std::size_t>(index)]; }

    QPointer<SensorSectionCard> card;
    int index;
};

class AccessibleSensorSection final : public QAccessibleWidget {
  public:
    explicit AccessibleSensorSection(SensorSectionCard& card)
        : QAccessibleWidget(&card, QAccessible::List) {}
    ~AccessibleSensorSection() override {
        for (const QAccessible::Id row : rows)
            QAccessible::deleteAccessibleInterface(row);
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Description ? card().section().count()
                                                : QAccessibleWidget::text(kind);
    }

    int childCount() const override { return card().rowCount(); }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount())
            return nullptr;
        // An interface stays the same for as long as anybody may know it.
        while (static_cast<int>(rows.size()) <= index)
            rows.push_back(QAccessible::registerAccessibleInterface(
                new AccessibleSensorRow(card(), static_cast<int>(rows.size()))));
        return QAccessible::accessibleInterface(rows[static_cast<std::size_t>(index)]);
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint point = card().mapFromGlobal(QPoint(x, y));
        const SensorSectionLayout layout = card().sectionLayout();
        const RowRange touched = layout.rowsIn({point, QSize(1, 1)});
        return touched.first < touched.end && layout.row(touched.first).row.contains(point)
                   ? child(touched.first)
                   : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* sought) const override {
        for (int index = 0; index < static_cast<int>(rows.size()); ++index) {
            if (child(index) == sought)
                return sought ? index : -1;
        }
        return -1;
    }

    QAccessibleInterface* focusChild() const override {
        const auto current = card().currentRow();
        return current ? child(*current) : nullptr;
    }

  private:
    SensorSectionCard& card() const { return *static_cast<SensorSectionCard*>(object()); }

    mutable std::vector<QAccessible::Id> rows;
};

} // namespace

void registerAccessibleSensorSection() {
    registerAccessible(makeAccessible<SensorSectionCard, AccessibleSensorSection>);
}

void announceSensorList(SensorSectionCard& card) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(&card, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
}

void announceCurrentSensor(SensorSectionCard& card) {
    if (!QAccessible::isActive() || !card.currentRow())
        return;
    QAccessibleEvent event(&card, QAccessible::Focus);
    event.setChild(*card.currentRow());
    QAccessible::updateAccessibility(&event);
}

} // namespace tervale
