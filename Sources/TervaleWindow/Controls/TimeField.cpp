#include "TervaleWindow/Controls/TimeField.h"

#include "Base/Precondition.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Controls/ForgetTyping.h"
#include "TervaleWindow/Controls/TabularLineEdit.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include <algorithm>

namespace tervale {

namespace {

constexpr int minutesPerHour = 60;

QTime timeAt(int minute) {
    return QTime(minute / minutesPerHour, minute % minutesPerHour);
}

} // namespace

TimeField::TimeField(QWidget* parent) : QTimeEdit(parent) {
    // A time is written from its hours on everywhere. Where text begins on the right, the toolkit
    // would turn the sections round, and seven o'clock would read "00:7".
    setLayoutDirection(Qt::LeftToRight);
    setLineEdit(new TabularLineEdit(this));
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    followLocale();
    lineEdit()->installEventFilter(this);
    connect(this, &QTimeEdit::userTimeChanged, this, &TimeField::announce);
    connect(this, &QTimeEdit::editingFinished, this, &TimeField::endTyping);
}

void TimeField::endTyping() {
    // The section is chosen by the cursor, which comes back to where it was.
    const QSignalBlocker quiet(lineEdit());
    forgetTyping(*lineEdit());
}

int TimeField::minuteOfDay() const {
    return time().hour() * minutesPerHour + time().minute();
}

void TimeField::setMinuteOfDay(int minute) {
    precondition(minute >= 0 && minute < minutesPerDay, "a minute of the day is 0 to 1439");
    announced = minute;
    if (minute != minuteOfDay())
        setTime(timeAt(minute));
}

void TimeField::stepBy(int steps) {
    const Section section = currentSection();
    int amount = 1;
    if (section == HourSection)
        amount = minutesPerHour;
    else if (section == AmPmSection)
        amount = minutesPerDay / 2;
    const int moved = (minuteOfDay() + steps * amount) % minutesPerDay;
    chooseMinuteOfDay((moved + minutesPerDay) % minutesPerDay);
    setSelectedSection(section);
}

void TimeField::chooseMinuteOfDay(int minute) {
    precondition(minute >= 0 && minute < minutesPerDay, "a minute of the day is 0 to 1439");
    setTime(timeAt(minute));
    announce();
    QAccessibleValueChangeEvent event(this, minute);
    QAccessible::updateAccessibility(&event);
}

QAbstractSpinBox::StepEnabled TimeField::stepEnabled() const {
    return isReadOnly() ? StepEnabled(StepNone) : StepUpEnabled | StepDownEnabled;
}

// The pane scrolls, whatever has the focus.
void TimeField::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

bool TimeField::eventFilter(QObject* watched, QEvent* event) {
    // Once the click has put the cursor somewhere, what is typed replaces the section there.
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonRelease)
        QMetaObject::invokeMethod(this, &TimeField::selectCurrentSection, Qt::QueuedConnection);
    return QTimeEdit::eventFilter(watched, event);
}

void TimeField::focusInEvent(QFocusEvent* event) {
    QTimeEdit::focusInEvent(event);
    // The toolkit marks the section that the keys are at only where a key brought the focus. Once
    // the click has put the cursor there.
    if (event->reason() == Qt::MouseFocusReason)
        QMetaObject::invokeMethod(this, &TimeField::selectCurrentSection, Qt::QueuedConnection);
}

void TimeField::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
    const bool digit = event->text().size() == 1 && event->text().front().isDigit();
    // A digit in place of all of the text begins with the hours, wherever the part of the day
    // stands.
    if (digit && lineEdit()->selectedText() == lineEdit()->text())
        setSelectedSection(HourSection);
    if (plain && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right))
        chooseSection(event->key() == Qt::Key_Left ? -1 : 1);
    else
        QTimeEdit::keyPressEvent(event);
}

void TimeField::selectCurrentSection() {
    setSelectedSection(currentSection());
}

void TimeField::chooseSection(int step) {
    setCurrentSectionIndex(std::clamp(currentSectionIndex() + step, 0, sectionCount() - 1));
    selectCurrentSection();
}

void TimeField::changeEvent(QEvent* event) {
    QTimeEdit::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        followLocale();
}

void TimeField::followLocale() {
    setDisplayFormat(timeOfDayFormat(locale()));
}

void TimeField::announce() {
    if (minuteOfDay() == announced)
        return;
    announced = minuteOfDay();
    emit minuteOfDayChanged(announced);
}

} // namespace tervale
