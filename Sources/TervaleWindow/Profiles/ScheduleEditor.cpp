#include "TervaleWindow/Profiles/ScheduleEditor.h"

#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Profiles/ScheduleRow.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tervale {

ScheduleEditor::ScheduleEditor(QWidget* parent) : QWidget(parent), rowsLayout(new QVBoxLayout) {
    // Made in the order in which they are read.
    auto* heading = new TextLabel(tr("Time windows"), TextStyle::heading(), TextColor::label, this);
    auto* rowsBox = new QWidget(this);
    rowsBox->setLayout(rowsLayout);
    addButton = new QPushButton(tr("Add Window"), this);
    auto* note =
        new TextLabel(tr("Times no window covers run Automatic. A window may cross midnight."),
                      TextStyle::caption(), TextColor::secondary, this);
    note->setOverflow(Overflow::wrap);
    rowsLayout->setContentsMargins(0, 0, 0, 0);
    rowsLayout->setSpacing(0);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(heading);
    layout->addSpacing(8);
    layout->addWidget(rowsBox);
    auto* divider = new Divider(Qt::Horizontal, this);
    divider->setContentsMargins(ScheduleRow::overhang());
    layout->addWidget(divider);
    layout->addSpacing(9);
    layout->addWidget(addButton, 0, Qt::AlignLeading);
    layout->addSpacing(10);
    layout->addWidget(note);
    connect(addButton, &QPushButton::clicked, this, [this] { emit edited(windowEdit::Add{}); });
}

ScheduleEditor::~ScheduleEditor() {
    for (ScheduleRow* row : rows)
        row->disconnect(this);
}

void ScheduleEditor::display(const std::vector<Window>& windows, std::span<const Profile> targets) {
    profiles.assign(targets.begin(), targets.end());
    editing.windows = windows;
    showRows();
}

void ScheduleEditor::showRows() {
    while (rows.size() > editing.windows.size()) {
        ScheduleRow* row = rows.back();
        rows.pop_back();
        // A field that loses the focus with its row tells of what was typed into it.
        row->disconnect(this);
        delete row;
    }
    while (rows.size() < editing.windows.size())
        rows.push_back(makeRow());
    for (std::size_t index = 0; index < rows.size(); ++index)
        rows[index]->display(editing, index, profiles);
    arrange();
}

ScheduleRow* ScheduleEditor::makeRow() {
    auto* row = new ScheduleRow(this);
    connect(row, &ScheduleRow::timeChanged, this,
            [this, row](ScheduleEditing::Edge edge, int minute) {
                emit edited(windowEdit::SetTime{indexOf(row), edge, {minute / 60, minute % 60}});
            });
    connect(row, &ScheduleRow::choiceChanged, this, [this, row](const Choice& choice) {
        emit edited(windowEdit::SetChoice{indexOf(row), choice});
    });
    connect(row, &ScheduleRow::speedChanged, this, [this, row](double fraction) {
        emit edited(windowEdit::SetSpeed{indexOf(row), fraction});
    });
    connect(row, &ScheduleRow::removeRequested, this, [this, row] { removeWindow(row); });
    rowsLayout->addWidget(row);
    return row;
}

std::size_t ScheduleEditor::indexOf(const ScheduleRow* row) const {
    return static_cast<std::size_t>(std::find(rows.begin(), rows.end(), row) - rows.begin());
}

void ScheduleEditor::removeWindow(ScheduleRow* row) {
    const std::size_t index = indexOf(row);
    row->disconnect(this);
    // This row goes, not the last one, so that every control keeps the window that it shows. It is
    // in the middle of telling of the click, so it goes later.
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(index));
    rowsLayout->removeWidget(row);
    row->hide();
    row->deleteLater();
    if (rows.empty())
        addButton->setFocus(Qt::OtherFocusReason);
    else
        rows[std::min(index, rows.size() - 1)]->focusRemoveButton();
    emit edited(windowEdit::Remove{index});
}

void ScheduleEditor::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void ScheduleEditor::arrange() {
    if (rows.empty())
        return;
    using Arrangement = ScheduleRow::Arrangement;
    auto arrangement = Arrangement::twoLines;
    if (rows.front()->widthOf(Arrangement::oneLine) <= width())
        arrangement = Arrangement::oneLine;
    else if (rows.front()->widthOf(Arrangement::tightLine) <= width())
        arrangement = Arrangement::tightLine;
    for (ScheduleRow* row : rows)
        row->setArrangement(arrangement);
}

} // namespace tervale
