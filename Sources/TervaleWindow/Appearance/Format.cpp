#include "TervaleWindow/Appearance/Format.h"

#include "SMC/Precondition.h"

#include <QRegularExpression>

#include <cmath>

namespace tervale {

QString celsius(double value) {
    return QStringLiteral("%1 °C").arg(roundedToInteger(value));
}

QString percent(double fraction) {
    // Any number can arrive here from outside. Adding zero turns a negative zero into zero.
    return QString::number(std::round(fraction * 100.0) + 0.0, 'f', 0) + QLatin1Char('%');
}

QString timeOfDayFormat(const QLocale& locale) {
    static const QRegularExpression rest(QStringLiteral("[^\\w\\s]?s+(\\.z+)?|\\s*t+"));
    QString format = locale.timeFormat(QLocale::ShortFormat);
    format.remove(rest);
    return format.trimmed();
}

} // namespace tervale
