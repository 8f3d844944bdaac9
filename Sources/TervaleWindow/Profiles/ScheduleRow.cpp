#include "TervaleWindow/Profiles/ScheduleRow.h"

#include "Base/Overloaded.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Controls/Decoration.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TightLayout.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Profiles/WholePercent.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace tervale {

namespace {

constexpr int lineHeight = 39;
constexpr int usualSpacing = 12;
constexpr int tightSpacing = 8;
constexpr int secondLineMargin = 8;
constexpr int widestPicker = 150;
constexpr int narrowestPicker = 122;
// The lengths of the slider's groove, and what is around it.
constexpr int usualSliderWidth = 96;
constexpr int tightSliderWidth = 84;
constexpr int aroundGroove = 3;
constexpr int speedWidth = 38;
// Before the profiles: "Automatic", "Fixed speed" and the divider.
constexpr int firstTarget = 3;
// Where what runs stands in the line.
constexpr int runPlace = 3;

/// Each name that is given is told, even if it is the same.
void nameAs(QWidget& control, const QString& name) {
    if (control.accessibleName() != name)
        control.setAccessibleName(name);
}

bool isStep(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

int minuteOf(ScheduleEditing::ClockTime time) {
    return time.hour * 60 + time.minute;
}

} // namespace

ScheduleRow::ScheduleRow(QWidget* parent)
    : QWidget(parent),
      start(new TimeField(this)),
      end(new TimeField(this)),
      run(new QWidget(this)),
      picker(new PopUpButton(run)),
      slider(new FractionSlider(run)),
      speed(new TabularLabel(systemFont(fontSize::body), TextColor::label, run)),
      removeButton(new SymbolButton(Symbol::minusCircle, tr("Remove window"), this)),
      runLine(new QHBoxLayout(run)),
      firstLine(new QHBoxLayout),
      secondLine(new QHBoxLayout) {
    picker->addItem(tr("Automatic"));
    picker->addItem(tr("Fixed speed"));
    // Measuring hundreds of names for every row would take long, and its width is bounded anyway.
    picker->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    picker->setMaximumWidth(widestPicker);
    picker->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    slider->setFixedWidth(usualSliderWidth + 2 * aroundGroove);
    // The slider is read with it.
    markAsDecoration(*speed);
    speed->setFixedWidth(speedWidth);
    // The pickers of all rows have one width, whatever they run.
    for (QWidget* part : {static_cast<QWidget*>(slider), static_cast<QWidget*>(speed)}) {
        QSizePolicy policy = part->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        part->setSizePolicy(policy);
    }
    speed->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layOut();
    connectControls();
}

void ScheduleRow::layOut() {
    for (QBoxLayout* line : {runLine, firstLine, secondLine}) {
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(usualSpacing);
    }
    // The picker takes what it may before anything stays empty.
    runLine->setSpacing(usualSpacing - aroundGroove);
    runLine->addWidget(picker, 100);
    runLine->addWidget(slider);
    runLine->addWidget(speed);
    runLine->addStretch(1);
    firstLine->addWidget(start);
    auto* to = new TextLabel(tr("to"), TextStyle::body(), TextColor::secondary, this);
    // The field is named so.
    markAsDecoration(*to);
    firstLine->addWidget(to);
    firstLine->addWidget(end);
    firstLine->addWidget(run, 1);
    firstLine->addWidget(removeButton);
    auto* lines = tightLayout<QVBoxLayout>(this);
    auto* divider = new Divider(Qt::Horizontal, this);
    divider->setContentsMargins(SymbolButton::overhang());
    lines->addWidget(divider);
    lines->addLayout(firstLine);
    lines->addLayout(secondLine);
    firstLine->addStrut(lineHeight);
}

void ScheduleRow::connectControls() {
    using Edge = ScheduleEditing::Edge;
    connectTime(start, Edge::start);
    connectTime(end, Edge::end);
    connect(picker, &PopUpButton::activated, this, [this](int entry) {
        if (const auto choice = choiceAt(entry))
            emit choiceChanged(*choice);
    });
    // Before they follow their events.
    for (QWidget* edited :
         {static_cast<QWidget*>(slider), static_cast<QWidget*>(start), static_cast<QWidget*>(end)})
        edited->installEventFilter(this);
    connect(slider, &FractionSlider::fractionChanged, this, &ScheduleRow::speedChanged);
    connect(slider, &FractionSlider::editingChanged, this, [this](bool active) {
        // The slider shows a speed that it has no place for at its end, where it can be confirmed.
        if (!active && (storedSpeed < 0 || storedSpeed > 1))
            emit speedChanged(slider->fraction());
    });
    connect(removeButton, &SymbolButton::clicked, this, &ScheduleRow::removeRequested);
}

bool ScheduleRow::eventFilter(QObject* watched, QEvent* event) {
    const bool pressed = event->type() == QEvent::MouseButtonPress && watched == slider;
    const bool key = event->type() == QEvent::KeyPress;
    if (pressed || (key && beginsWith(*static_cast<QKeyEvent*>(event), *watched)))
        emit settled();
    return QWidget::eventFilter(watched, event);
}

/// Whether what the key changes is another thing than what was changed before.
bool ScheduleRow::beginsWith(const QKeyEvent& press, const QObject& control) {
    if (&control == slider)
        return speedKeys.beginsWith(press);
    const bool steps = isStep(press.key());
    // A key that writes nothing, such as Shift, parts nothing.
    if (!steps && press.text().isEmpty())
        return false;
    const bool otherWay = std::exchange(steppedTime, steps) != steps;
    // What is typed is one thing until the field is left, whatever the pauses.
    return (steps && timeKeys.beginsWith(press)) || otherWay;
}

void ScheduleRow::connectTime(TimeField* field, ScheduleEditing::Edge edge) {
    connect(field, &TimeField::minuteOfDayChanged, this,
            [this, edge](int minute) { emit timeChanged(edge, minute); });
    // A stored time outside the day is shown as one within it, which the field knows no difference
    // from; typing or confirming that takes it.
    const auto confirm = [this, field, edge] {
        // The field calls even a time that it was given a user's.
        if (!displaying &&
            storedTimes[edge == ScheduleEditing::Edge::start ? 0 : 1] != field->minuteOfDay())
            emit timeChanged(edge, field->minuteOfDay());
    };
    connect(field, &QTimeEdit::userTimeChanged, this, confirm);
    connect(field, &QTimeEdit::editingFinished, this, &ScheduleRow::settled);
    connect(field->findChild<QLineEdit*>(), &QLineEdit::textEdited, this, confirm);
}

void ScheduleRow::display(const ScheduleEditing& editing, std::size_t index,
                          std::span<const Profile> profiles) {
    const QScopedValueRollback guard(displaying, true);
    nameControls(index + 1, editing.windows.size());
    const auto choice = editing.choice(index);
    start->setMinuteOfDay(minuteOf(editing.time(index, ScheduleEditing::Edge::start)));
    end->setMinuteOfDay(minuteOf(editing.time(index, ScheduleEditing::Edge::end)));
    showTargets(scheduleTargets(profiles, choice));
    picker->setCurrentIndex(entryOf(choice));
    // Names are no markup.
    picker->setToolTip(QStringLiteral("<p>%1</p>").arg(picker->currentText().toHtmlEscaped()));
    const Window& window = editing.windows[index];
    storedTimes = {window.start, window.end};
    showSpeed(window.action);
}

void ScheduleRow::nameControls(std::size_t number, std::size_t count) {
    const auto named = [number, count](const QString& name) {
        return name.arg(QString::number(number), QString::number(count));
    };
    nameAs(*start, named(tr("From, window %1 of %2")));
    nameAs(*end, named(tr("To, window %1 of %2")));
    nameAs(*picker, named(tr("Run, window %1 of %2")));
    nameAs(*slider, named(tr("Fan speed, window %1 of %2")));
    nameAs(*removeButton, named(tr("Remove window %1 of %2")));
}

void ScheduleRow::showTargets(std::vector<ScheduleTarget> others) {
    if (others == targets)
        return;
    targets = std::move(others);
    while (picker->count() > firstTarget - 1)
        picker->removeItem(picker->count() - 1);
    if (targets.empty())
        return;
    picker->insertSeparator(firstTarget - 1);
    QStringList titles;
    for (const ScheduleTarget& target : targets)
        titles.push_back(target.title);
    picker->addItems(titles);
}

void ScheduleRow::showSpeed(const Action& action) {
    const auto* fixed = std::get_if<action::Fixed>(&action);
    slider->setVisible(fixed != nullptr);
    speed->setVisible(fixed != nullptr);
    storedSpeed = fixed ? fixed->speed : 0;
    if (!fixed)
        return;
    // The agent may have sent any number.
    const double shown = std::clamp(fixed->speed, -100.0, 100.0);
    // A slider that stands at this percent already stays there, or moves of less would be lost.
    if (!slider->isEditing() || wholePercent(slider->fraction()) != shown)
        slider->setFraction(shown);
    speed->setText(percent(shown));
}

std::optional<ScheduleEditing::Choice> ScheduleRow::choiceAt(int entry) const {
    if (entry == 0)
        return choice::Automatic{};
    if (entry == 1)
        return choice::Fixed{};
    const int target = entry - firstTarget;
    if (target < 0 || target >= static_cast<int>(targets.size()))
        return std::nullopt;
    return targets[static_cast<std::size_t>(target)].choice;
}

int ScheduleRow::entryOf(const ScheduleEditing::Choice& choice) const {
    return std::visit(overloaded{
                          [](const choice::Automatic&) { return 0; },
                          [](const choice::Fixed&) { return 1; },
                          [this, &choice](const choice::Profile&) {
                              const auto found = std::find_if(
                                  targets.begin(), targets.end(),
                                  [&](const auto& target) { return target.choice == choice; });
                              return firstTarget + static_cast<int>(found - targets.begin());
                          },
                      },
                      choice);
}

void ScheduleRow::setArrangement(Arrangement arrangement) {
    if (arrangement == arranged)
        return;
    const bool wasBroken = arranged == Arrangement::twoLines;
    const bool broken = arrangement == Arrangement::twoLines;
    arranged = arrangement;
    const bool tight = arrangement == Arrangement::tightLine;
    const int spacing = tight ? tightSpacing : usualSpacing;
    firstLine->setSpacing(spacing);
    runLine->setSpacing(spacing - aroundGroove);
    slider->setFixedWidth((tight ? tightSliderWidth : usualSliderWidth) + 2 * aroundGroove);
    if (broken && !wasBroken) {
        firstLine->removeWidget(run);
        firstLine->insertStretch(runPlace, 1);
        secondLine->addWidget(run);
        secondLine->setContentsMargins(0, 0, 0, secondLineMargin);
    } else if (!broken && wasBroken) {
        secondLine->removeWidget(run);
        secondLine->setContentsMargins(0, 0, 0, 0);
        delete firstLine->takeAt(runPlace);
        firstLine->insertWidget(runPlace, run, 1);
    }
}

int ScheduleRow::widthOf(Arrangement arrangement) const {
    const int times = start->sizeHint().width() + end->sizeHint().width() +
                      fontMetrics().horizontalAdvance(tr("to"));
    // "Fixed speed" fits.
    const int running =
        std::max(narrowestPicker, picker->widthFor(picker->itemText(1))) + speedWidth;
    const int remove = removeButton->sizeHint().width();
    switch (arrangement) {
    case Arrangement::oneLine:
        return times + running + usualSliderWidth + remove + 6 * usualSpacing;
    case Arrangement::tightLine:
        return times + running + tightSliderWidth + remove + 6 * tightSpacing;
    case Arrangement::twoLines:
        return std::max(times + remove + 4 * usualSpacing,
                        running + usualSliderWidth + 2 * usualSpacing);
    }
    return 0;
}

void ScheduleRow::focusRemoveButton() {
    removeButton->setFocus(Qt::OtherFocusReason);
}

QSize ScheduleRow::minimumSizeHint() const {
    // Not what one line takes, so that a narrow pane can ask for two at all.
    return {widthOf(Arrangement::twoLines), QWidget::minimumSizeHint().height()};
}

} // namespace tervale
