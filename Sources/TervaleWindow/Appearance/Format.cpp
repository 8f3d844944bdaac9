#include "TervaleWindow/Appearance/Format.h"

#include "Profiles/DisplayText.h"

#include <QRegularExpression>

namespace tervale {

QString celsius(double value) {
    return QString::fromStdString(displayText::celsius(value));
}

QString percent(double fraction) {
    return QString::fromStdString(displayText::percent(fraction));
}

QString timeOfDayFormat(const QLocale& locale) {
    static const QRegularExpression rest(QStringLiteral("[^\\w\\s]?s+(\\.z+)?|\\s*t+"));
    QString format = locale.timeFormat(QLocale::ShortFormat);
    format.remove(rest);
    // Some of the system's formats name the part of the day, which the toolkit does not know and
    // would write as a letter.
    static const QRegularExpression partOfDay(QStringLiteral("('[^']*')|[bB]+"));
    QString known;
    qsizetype end = 0;
    for (const auto& found : partOfDay.globalMatch(format)) {
        known += format.mid(end, found.capturedStart() - end);
        known += found.hasCaptured(1) ? found.captured(1) : QStringLiteral("AP");
        end = found.capturedEnd();
    }
    return (known + format.mid(end)).trimmed();
}

} // namespace tervale
