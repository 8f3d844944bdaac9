#include "TervaleWindow/Controls/TimeField.h"

#include "SMC/Precondition.h"

#include <QEvent>
#include <QRegularExpression>
#include <QWheelEvent>

namespace tervale {

namespace {

constexpr int minutesPerHour = 60;

QTime timeAt(int minute) {
    return QTime(minute / minutesPerHour, minute % minutesPerHour);
}

/// The locale's way to write a time, without its seconds and time zone.
QString hoursAndMinutes(const QLocale& locale) {
    static const QRegularExpression rest(QStringLiteral("[^\\w\\s]?s+(\\.z+)?|\\s*t+"));
    QString format = locale.timeFormat(QLocale::ShortFormat);
    format.remove(rest);
    return format.trimmed();
}

} // namespace

TimeField::TimeField(QWidget* parent) : QTimeEdit(parent) {
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    followLocale();
    connect(this, &QTimeEdit::userTimeChanged, this, &TimeField::announce);
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
    setTime(timeAt((moved + minutesPerDay) % minutesPerDay));
    setSelectedSection(section);
    announce();
}

QAbstractSpinBox::StepEnabled TimeField::stepEnabled() const {
    return isReadOnly() ? StepEnabled(StepNone) : StepUpEnabled | StepDownEnabled;
}

void TimeField::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QTimeEdit::wheelEvent(event);
    else
        event->ignore();
}

void TimeField::changeEvent(QEvent* event) {
    QTimeEdit::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        followLocale();
}

void TimeField::followLocale() {
    setDisplayFormat(hoursAndMinutes(locale()));
}

void TimeField::announce() {
    if (minuteOfDay() == announced)
        return;
    announced = minuteOfDay();
    emit minuteOfDayChanged(announced);
}

} // namespace tervale
