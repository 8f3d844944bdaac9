#include "TervaleWindow/Accessibility/AccessibleList.h"

#include <QAccessibleActionInterface>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QListView>
#include <QPointer>

namespace tervale {

namespace {

/// The pop-up button whose list this is, or null.
QComboBox* buttonOf(const QListView& list) {
    for (QWidget* above = list.parentWidget(); above; above = above->parentWidget()) {
        if (auto* button = qobject_cast<QComboBox*>(above))
            return button->view() == &list ? button : nullptr;
    }
    return nullptr;
}

void choose(QListView& list, const QModelIndex& index) {
    // The selection comes with it.
    list.setCurrentIndex(index);
    if (!buttonOf(list))
        return;
    // The button takes what a key chooses in its list, and closes that.
    QKeyEvent choice(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(&list, &choice);
}

void tellRow(QListView& list) {
    if (!list.hasFocus() || !list.currentIndex().isValid())
        return;
    QAccessibleEvent event(&list, QAccessible::Focus);
    event.setChild(list.currentIndex().row());
    QAccessible::updateAccessibility(&event);
}

/// The row at a fixed place; invalid while there are fewer rows.
class Row final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    Row(QListView& owner, int place) : list(&owner), place(place) {}

    bool isValid() const override { return list && list->model() && index().isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return isValid() ? parent()->window() : nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(list);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}

    QAccessible::Role role() const override {
        return isValid() && !canBeChosen() ? QAccessible::Separator : QAccessible::ListItem;
    }

    QString text(QAccessible::Text kind) const override {
        if (!isValid() || kind != QAccessible::Name)
            return {};
        const QString spoken = index().data(Qt::AccessibleTextRole).toString();
        return spoken.isEmpty() ? index().data().toString() : spoken;
    }

    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect area = list->visualRect(index());
        return {list->viewport()->mapToGlobal(area.topLeft()), area.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        state.selectable = state.focusable = canBeChosen();
        state.disabled = !canBeChosen() || !list->isEnabled();
        state.selected = list->selectionModel()->isSelected(index());
        state.focused = list->hasFocus() && list->currentIndex() == index();
        state.invisible = !list->isVisible();
        state.offscreen = !list->viewport()->rect().intersects(list->visualRect(index()));
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface && isValid()
                   ? static_cast<QAccessibleActionInterface*>(this)
                   : nullptr;
    }
    QStringList actionNames() const override {
        return isValid() && canBeChosen() ? QStringList{pressAction()} : QStringList();
    }
    void doAction(const QString& name) override {
        if (actionNames().contains(name))
            choose(*list, index());
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    QModelIndex index() const {
        return list->model()->index(place, list->modelColumn(), list->rootIndex());
    }
    bool canBeChosen() const { return index().flags().testFlag(Qt::ItemIsEnabled); }

    QPointer<QListView> list;
    int place;
};

} // namespace

/// Tells of what the toolkit does not: the row that the focus comes to with the list, and rows that
/// read otherwise.
class AccessibleList::RowTeller final : public QObject {
  public:
    explicit RowTeller(QListView& watched) : QObject(&watched), list(watched) {
        list.installEventFilter(this);
    }

    /// The list may get another model.
    void follow(const QAbstractItemModel& model) {
        connect(&model, &QAbstractItemModel::dataChanged, this, &RowTeller::tellNames,
                Qt::UniqueConnection);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        // The toolkit tells of the list itself right after this event.
        if (event->type() == QEvent::FocusIn)
            QMetaObject::invokeMethod(
                this, [this] { tellRow(list); }, Qt::QueuedConnection);
        return QObject::eventFilter(watched, event);
    }

  private:
    void tellNames(const QModelIndex& first, const QModelIndex& last) {
        for (int row = first.row(); row <= last.row(); ++row) {
            QAccessibleEvent event(&list, QAccessible::NameChanged);
            event.setChild(row);
            QAccessible::updateAccessibility(&event);
        }
    }

    QListView& list;
};

AccessibleList::AccessibleList(QListView& described)
    : QAccessibleWidget(&described, QAccessible::List),
      teller(new RowTeller(described)),
      rows([&described](int place) { return new Row(described, place); }) {}

QAccessibleInterface* AccessibleList::parent() const {
    QComboBox* button = buttonOf(list());
    return button ? QAccessible::queryAccessibleInterface(button) : QAccessibleWidget::parent();
}

QString AccessibleList::text(QAccessible::Text kind) const {
    const QString given = QAccessibleWidget::text(kind);
    QComboBox* button = buttonOf(list());
    return button && kind == QAccessible::Name && given.isEmpty() ? button->accessibleName()
                                                                  : given;
}

int AccessibleList::childCount() const {
    return list().model() ? list().model()->rowCount(list().rootIndex()) : 0;
}

QAccessibleInterface* AccessibleList::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    teller->follow(*list().model());
    return rows.at(index);
}

QAccessibleInterface* AccessibleList::childAt(int x, int y) const {
    const QModelIndex index = list().indexAt(list().viewport()->mapFromGlobal(QPoint(x, y)));
    return index.isValid() ? child(index.row()) : nullptr;
}

int AccessibleList::indexOfChild(const QAccessibleInterface* child) const {
    return rows.indexOf(child);
}

QAccessibleInterface* AccessibleList::focusChild() const {
    const bool here = list().hasFocus() && list().currentIndex().isValid();
    return here ? child(list().currentIndex().row()) : nullptr;
}

QListView& AccessibleList::list() const {
    return *static_cast<QListView*>(widget());
}

} // namespace tervale
