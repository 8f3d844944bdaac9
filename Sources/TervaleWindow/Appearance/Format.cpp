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
    return format.trimmed();
}

} // namespace tervale
