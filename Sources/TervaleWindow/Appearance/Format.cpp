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
    // What is quoted stays as it is. Some of the system's formats name the part of the day, which
    // the toolkit does not know and would write as a letter. The rest are seconds and time zones.
    static const QRegularExpression piece(
        QStringLiteral("('[^']*')|([bB]+)|[^\\w\\s']?s+(?:\\.z+)?|\\s*t+"));
    const QString format = locale.timeFormat(QLocale::ShortFormat);
    QString known;
    qsizetype end = 0;
    for (const auto& found : piece.globalMatch(format)) {
        known += format.mid(end, found.capturedStart() - end);
        if (found.hasCaptured(1))
            known += found.captured(1);
        else if (found.hasCaptured(2))
            known += QStringLiteral("AP");
        end = found.capturedEnd();
    }
    return (known + format.mid(end)).trimmed();
}

} // namespace tervale
