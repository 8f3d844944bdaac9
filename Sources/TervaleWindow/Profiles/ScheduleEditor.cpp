#include "TervaleWindow/Profiles/ScheduleEditor.h"

#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TightLayout.h"
#include "TervaleWindow/Profiles/ScheduleRows.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tervale {

ScheduleEditor::ScheduleEditor(QWidget* parent) : QWidget(parent) {
    // Made in the order in which they are read.
    auto* heading = new TextLabel(tr("Time windows"), TextStyle::heading(), TextColor::label, this);
    rows = new ScheduleRows(this);
    auto* addButton = new QPushButton(tr("Add Window"), this);
    auto* note =
        new TextLabel(tr("Times no window covers run Automatic. A window may cross midnight."),
                      TextStyle::caption(), TextColor::secondary, this);
    note->setOverflow(Overflow::wrap);
    rows->setHeir(*addButton);

    auto* layout = tightLayout<QVBoxLayout>(this);
    layout->addWidget(heading);
    layout->addSpacing(8);
    layout->addWidget(rows);
    auto* divider = new Divider(Qt::Horizontal, this);
    divider->setContentsMargins(SymbolButton::overhang());
    layout->addWidget(divider);
    layout->addSpacing(9);
    layout->addWidget(addButton, 0, Qt::AlignLeading);
    layout->addSpacing(10);
    layout->addWidget(note);
    connect(addButton, &QPushButton::clicked, this, [this] { emit edited(windowEdit::Add{}); });
    connect(rows, &ScheduleRows::edited, this, &ScheduleEditor::edited);
    connect(rows, &ScheduleRows::settled, this, &ScheduleEditor::settled);
}

ScheduleEditor::~ScheduleEditor() {
    // A field that loses the focus with its window tells of that.
    rows->disconnect(this);
}

const std::vector<Window>& ScheduleEditor::windows() const {
    return rows->windows();
}

void ScheduleEditor::display(const std::vector<Window>& windows, std::span<const Profile> targets) {
    rows->display(windows, targets);
}

} // namespace tervale
