#pragma once

#include <QString>

namespace tervale {

/// A temperature in whole degrees, halves away from zero, such as "48 °C". One that is not finite
/// or outside the signed 64-bit range is a programming error.
QString celsius(double value);

/// A fraction in whole percent, halves away from zero, such as "50%".
QString percent(double fraction);

} // namespace tervale
