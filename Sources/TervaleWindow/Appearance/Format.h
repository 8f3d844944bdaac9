#pragma once

#include <QLocale>
#include <QString>

namespace tervale {

/// The texts of `displayText`.
QString celsius(double value);
QString percent(double fraction);

/// How the user's locale writes a time of day in its short style, without seconds and time zone.
QString timeOfDayFormat(const QLocale& locale);

} // namespace tervale
