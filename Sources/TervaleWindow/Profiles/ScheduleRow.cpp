#include "TervaleWindow/Profiles/ScheduleRow.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/FigureLabel.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TimeField.h"

#include <QHBoxLayout>

#include <algorithm>

namespace tervale {

namespace {

constexpr int lineHeight = 39;
constexpr int spacing = 12;
constexpr int widestPicker = 150;
constexpr int narrowestPicker = 112;
constexpr int sliderWidth = 96;
constexpr int speedWidth = 38;
// Before the profiles: "Automatic", "Fixed speed" and the divider.
constexpr int firstTarget = 3;

TimeField* makeTimeField(const QString& name, QWidget* parent) {
    auto* field = new TimeField(parent);
    field->setAccessibleName(name);
    return field;
}

int minuteOf(ScheduleEditing::ClockTime time) {
    return time.hour * 60 + time.minute;
}

} // namespace

ScheduleRow::ScheduleRow(QWidget* parent)
    : QWidget(parent),
      start(makeTimeField(tr("From"), this)),
      end(makeTimeField(tr("To"), this)),
      run(new QWidget(this)),
      picker(new PopUpButton(run)),
      slider(new FractionSlider(run)),
      speed(new FigureLabel(systemFont(fontSize::body), TextColor::label, run)),
      removeButton(new SymbolButton(Symbol::minusCircle, tr("Remove window"), this)),
      firstLine(new QHBoxLayout),
      secondLine(new QHBoxLayout) {
    picker->setAccessibleName(tr("Run"));
    picker->addItem(tr("Automatic"));
    picker->addItem(tr("Fixed speed"));
    picker->setMaximumWidth(widestPicker);
    picker->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    slider->setAccessibleName(tr("Fan speed"));
    slider->setFixedWidth(sliderWidth);
    speed->setFixedWidth(speedWidth);
    speed->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layOut();
    connectControls();
}

void ScheduleRow::layOut() {
    auto* runLayout = new QHBoxLayout(run);
    runLayout->setContentsMargins(0, 0, 0, 0);
    runLayout->setSpacing(spacing);
    runLayout->addWidget(picker, 1);
    runLayout->addWidget(slider);
    runLayout->addWidget(speed);
    firstLine->setSpacing(spacing);
    firstLine->addWidget(start);
    firstLine->addWidget(new TextLabel(tr("to"), TextStyle::body(), TextColor::secondary, this));
    firstLine->addWidget(end);
    firstLine->addWidget(run, 1);
    firstLine->addWidget(removeButton);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(new Divider(Qt::Horizontal, this));
    lines->addLayout(firstLine);
    lines->addLayout(secondLine);
    for (QBoxLayout* line : {firstLine, secondLine})
        line->setContentsMargins(0, 0, 0, 0);
    firstLine->addStrut(lineHeight);
}

void ScheduleRow::connectControls() {
    using Edge = ScheduleEditing::Edge;
    connect(start, &TimeField::minuteOfDayChanged, this,
            [this](int minute) { emit timeChanged(Edge::start, minute); });
    connect(end, &TimeField::minuteOfDayChanged, this,
            [this](int minute) { emit timeChanged(Edge::end, minute); });
    connect(picker, &PopUpButton::activated, this, [this](int entry) {
        if (const auto choice = choiceAt(entry))
            emit choiceChanged(*choice);
    });
    connect(slider, &FractionSlider::fractionChanged, this, &ScheduleRow::speedChanged);
    connect(removeButton, &SymbolButton::clicked, this, &ScheduleRow::removeRequested);
}

void ScheduleRow::display(const ScheduleEditing& editing, std::size_t index,
                          std::span<const Profile> profiles) {
    const auto choice = editing.choice(index);
    start->setMinuteOfDay(minuteOf(editing.time(index, ScheduleEditing::Edge::start)));
    end->setMinuteOfDay(minuteOf(editing.time(index, ScheduleEditing::Edge::end)));
    showTargets(scheduleTargets(profiles, choice));
    picker->setCurrentIndex(entryOf(choice));
    picker->setToolTip(picker->currentText());
    showSpeed(editing.windows[index].action);
}

void ScheduleRow::showTargets(std::vector<ScheduleTarget> others) {
    if (others == targets)
        return;
    targets = std::move(others);
    while (picker->count() > firstTarget - 1)
        picker->removeItem(picker->count() - 1);
    if (!targets.empty())
        picker->insertSeparator(firstTarget - 1);
    for (const ScheduleTarget& target : targets)
        picker->addItem(target.title);
}

void ScheduleRow::showSpeed(const Action& action) {
    const auto* fixed = std::get_if<action::Fixed>(&action);
    slider->setVisible(fixed != nullptr);
    speed->setVisible(fixed != nullptr);
    if (!fixed)
        return;
    // The agent may have sent any number.
    const double shown = std::clamp(fixed->speed, -100.0, 100.0);
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
    arranged = arrangement;
    if (arrangement == Arrangement::twoLines) {
        firstLine->removeWidget(run);
        firstLine->insertStretch(3, 1);
        secondLine->addWidget(run, 1);
        secondLine->addSpacing(removeButton->sizeHint().width() + spacing);
    } else {
        delete firstLine->takeAt(3);
        while (QLayoutItem* item = secondLine->takeAt(0))
            delete item;
        firstLine->insertWidget(3, run, 1);
    }
}

int ScheduleRow::widthOfOneLine() const {
    return start->sizeHint().width() + end->sizeHint().width() +
           fontMetrics().horizontalAdvance(tr("to")) + narrowestPicker + sliderWidth + speedWidth +
           removeButton->sizeHint().width() + 6 * spacing;
}

void ScheduleRow::focusRemoveButton() {
    removeButton->setFocus(Qt::OtherFocusReason);
}

QSize ScheduleRow::minimumSizeHint() const {
    // So that a narrow pane can ask for two lines at all.
    const int times = start->sizeHint().width() + end->sizeHint().width() + spacing * 3 +
                      fontMetrics().horizontalAdvance(tr("to")) + removeButton->sizeHint().width();
    return {times, QWidget::minimumSizeHint().height()};
}

} // namespace tervale
