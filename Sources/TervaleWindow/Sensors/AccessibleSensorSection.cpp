#include "TervaleWindow/Sensors/AccessibleSensorSection.h"

#include "TervaleWindow/Accessibility/AccessibleChildren.h"
#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Sensors/SensorSectionCard.h"

#include <QAccessibleWidget>
#include <QPointer>

namespace tervale {

namespace {

/// The row at a fixed place of a section; invalid while there are fewer rows. Its reading is a part
/// of its name: a value between limits would be offered to be raised.
class AccessibleSensorRow final : public QAccessibleInterface {
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

    QString text(QAccessible::Text kind) const override {
        return isValid() && kind == QAccessible::Name
                   ? QStringLiteral("%1, %2").arg(row().name, celsius(row().value))
                   : QString();
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
        state.focusable = true;
        state.focused = card->currentRow() == index;
        state.invisible = !card->isVisible();
        state.offscreen = !card->visibleRegion().intersects(card->sectionLayout().row(index).row);
        return state;
    }

  private:
    const SensorRow& row() const { return card->section().rows[static_cast<std::size_t>(index)]; }

    QPointer<SensorSectionCard> card;
    int index;
};

class AccessibleSensorSection final : public QAccessibleWidget {
  public:
    explicit AccessibleSensorSection(SensorSectionCard& card)
        : QAccessibleWidget(&card, QAccessible::List),
          rows([&card](int place) { return new AccessibleSensorRow(card, place); }) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Description ? card().section().count()
                                                : QAccessibleWidget::text(kind);
    }

    int childCount() const override { return card().rowCount(); }

    QAccessibleInterface* child(int index) const override {
        return index >= 0 && index < childCount() ? rows.at(index) : nullptr;
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
        return rows.indexOf(sought);
    }

    QAccessibleInterface* focusChild() const override {
        const auto current = card().currentRow();
        return current ? child(*current) : nullptr;
    }

  private:
    SensorSectionCard& card() const { return *static_cast<SensorSectionCard*>(object()); }

    mutable AccessibleChildren rows;
};

void tellOfCurrentRow(SensorSectionCard& card, QAccessible::Event type) {
    if (!card.currentRow())
        return;
    QAccessibleEvent event(&card, type);
    event.setChild(*card.currentRow());
    QAccessible::updateAccessibility(&event);
}

} // namespace

void registerAccessibleSensorSection() {
    registerAccessible(makeAccessible<SensorSectionCard, AccessibleSensorSection>);
}

void tellSensorList(SensorSectionCard& card) {
    QAccessibleEvent event(&card, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
}

void tellCurrentReading(SensorSectionCard& card) {
    tellOfCurrentRow(card, QAccessible::NameChanged);
}

void tellCurrentSensor(SensorSectionCard& card) {
    // Whoever read the row before may remember an old reading.
    tellCurrentReading(card);
    tellOfCurrentRow(card, QAccessible::Focus);
}

} // namespace tervale
