#pragma once

#include "SMC/Fan.h"

#include <string>

namespace tervale {

/// Such as "2317 RPM"; a dash stands for a number that no fan has.
std::string speedText(double rpm);
/// Such as "1350–5000 RPM".
std::string rangeText(const Fan& fan);

} // namespace tervale
