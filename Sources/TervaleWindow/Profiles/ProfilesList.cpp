#include "TervaleWindow/Profiles/ProfilesList.h"

#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/KeyTable.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Model/DisplayName.h"
#include "TervaleWindow/Profiles/ProfileDefaults.h"
#include "TervaleWindow/Profiles/ProfileRowDelegate.h"
#include "TervaleWindow/Profiles/ScheduleTargets.h"
#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QListView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace tervale {

ProfilesList::ProfilesList(DraftOwner& draftShown, QWidget* parent)
    : QWidget(parent),
      draft(draftShown),
      rows(new ProfilesListModel(this)),
      list(new QListView(this)),
      addButton(new SymbolButton(Symbol::plus, tr("Add profile"), this)),
      duplicateButton(new SymbolButton(Symbol::plusSquareOnSquare, tr("Duplicate profile"), this)),
      removeButton(new SymbolButton(Symbol::minus, tr("Remove profile"), this)) {
    setFixedWidth(columnWidth);
    makeList();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 6, 0, 0);
    column->setSpacing(0);
    column->addWidget(list, 1);
    column->addWidget(new Divider(Qt::Horizontal, this));
    column->addWidget(makeToolbar());
    connect(&draft, &DraftOwner::listChanged, this, &ProfilesList::showRows);
    connect(&draft, &DraftOwner::selectionChanged, this, &ProfilesList::showSelection);
    connect(&draft, &DraftOwner::problemsChanged, this, &ProfilesList::showRow);
    connect(&draft, &DraftOwner::edited, this, [this](const ProfileEdit& edit, std::size_t index) {
        if (std::holds_alternative<profileEdit::Rename>(edit))
            showRow(index);
    });
    showRows();
}

void ProfilesList::makeList() {
    list->setAccessibleName(tr("Profiles"));
    list->setModel(rows);
    list->setItemDelegate(new ProfileRowDelegate(list));
    list->setFrameShape(QFrame::NoFrame);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setUniformItemSizes(true);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The window's ground shows through.
    list->setAutoFillBackground(false);
    list->viewport()->setAutoFillBackground(false);
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!displaying)
            draft.select(selectedId());
    });
    for (const QKeySequence& key : keysOf(KeyCommand::removeProfile)) {
        auto* shortcut = new QShortcut(key, list);
        shortcut->setContext(Qt::WidgetShortcut);
        // A key that is held down must not empty the list.
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, &draft, &DraftOwner::remove);
    }
}

QWidget* ProfilesList::makeToolbar() {
    auto* menu = new QMenu(addButton);
    const auto offer = [this, menu](const QString& title, const QString& name,
                                    const ProfileKind& kind) {
        connect(menu->addAction(title), &QAction::triggered, this, [this, name, kind] {
            draft.add(name.toStdString(), kind);
            emit added();
        });
    };
    offer(tr("Temperature curve"), tr("Temperature"),
          kind::Temperature{TemperatureInput::hottestOf(SensorGroup::cpu),
                            ProfileDefaults::temperatureCurve()});
    offer(tr("Load curve"), tr("Load"), kind::Load{ProfileDefaults::loadCurve()});
    offer(tr("Schedule"), tr("Schedule"), kind::Schedule{ProfileDefaults::schedule()});
    addButton->setMenu(menu);
    connect(duplicateButton, &SymbolButton::clicked, &draft, &DraftOwner::duplicate);
    connect(removeButton, &SymbolButton::clicked, &draft, &DraftOwner::remove);

    auto* toolbar = new QWidget(this);
    toolbar->setFixedHeight(35);
    auto* row = new QHBoxLayout(toolbar);
    row->setContentsMargins(9, 0, 9, 0);
    row->setSpacing(8);
    for (SymbolButton* button : {addButton, duplicateButton, removeButton})
        row->addWidget(button);
    row->addStretch(1);
    return toolbar;
}

ProfilesListModel::Row ProfilesList::rowOf(std::size_t index) const {
    const Profile& profile = draft.profiles()[index];
    return {profile.id, displayName(profile), !draft.problemsAt(index).empty()};
}

void ProfilesList::showRows() {
    {
        const QScopedValueRollback guard(displaying, true);
        std::vector<ProfilesListModel::Row> shown;
        shown.reserve(draft.profiles().size());
        for (std::size_t index = 0; index < draft.profiles().size(); ++index)
            shown.push_back(rowOf(index));
        rows->setRows(std::move(shown));
    }
    showSelection();
}

void ProfilesList::showRow(std::size_t index) {
    rows->setRow(index, rowOf(index));
}

QWidget& ProfilesList::focusTarget() {
    if (list->focusPolicy() == Qt::NoFocus)
        return *addButton;
    return *list;
}

void ProfilesList::keepFocus() {
    // A control that is disabled hands the focus on, out of this column; and a list without rows
    // has nothing to show it on.
    const bool fromButton =
        !draft.selected() && (duplicateButton->hasFocus() || removeButton->hasFocus());
    const bool fromList = draft.profiles().empty() && list->hasFocus();
    const bool keyboard =
        fromList || hasKeyboardFocus(*duplicateButton) || hasKeyboardFocus(*removeButton);
    if (fromButton || fromList)
        addButton->setFocus(keyboard ? Qt::TabFocusReason : Qt::OtherFocusReason);
    list->setFocusPolicy(draft.profiles().empty() ? Qt::NoFocus : Qt::StrongFocus);
}

void ProfilesList::showSelection() {
    selectRow(draft.draft().selection);
    // A profile that is added before the agent has answered would be lost with its answer.
    addButton->setEnabled(draft.draft().loaded);
    const QString waiting =
        draft.draft().loaded ? QString() : tr("Waiting for Tervale in the menu bar…");
    addButton->setToolTip(waiting.isEmpty() ? addButton->accessibleName() : waiting);
    addButton->setAccessibleDescription(waiting);
    keepFocus();
    duplicateButton->setEnabled(draft.selected() != nullptr);
    removeButton->setEnabled(draft.selected() != nullptr);
}

void ProfilesList::selectRow(const std::optional<UUID>& id) {
    if (selectedId() == id)
        return;
    const QScopedValueRollback guard(displaying, true);
    const auto found = std::find_if(rows->rows().begin(), rows->rows().end(),
                                    [&id](const auto& row) { return row.id == id; });
    if (found == rows->rows().end()) {
        list->selectionModel()->clear();
        return;
    }
    const QModelIndex index = rows->index(static_cast<int>(found - rows->rows().begin()));
    list->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    list->scrollTo(index);
}

std::optional<UUID> ProfilesList::selectedId() const {
    const QModelIndexList selected = list->selectionModel()->selectedIndexes();
    if (selected.isEmpty())
        return std::nullopt;
    return rows->rows()[static_cast<std::size_t>(selected.front().row())].id;
}

} // namespace tervale
