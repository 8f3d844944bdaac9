#pragma once

#include <QLocale>
#include <QString>

namespace tervale {

/// A temperature in whole degrees, halves away from zero, such as "48 °C". One that is not finite
/// or outside the signed 64-bit range is a programming error.
QString celsius(double value);

/// A fraction in whole percent, halves away from zero, such as "50%".
QString percent(double fraction);

/// How the user's locale writes a time of day in its short style, without seconds and time zone.
QString timeOfDayFormat(const QLocale& locale);

} // namespace tervale
