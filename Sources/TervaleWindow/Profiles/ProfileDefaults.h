#pragma once

#include "Profiles/Profile.h"

namespace tervale {

/// What new profiles start with.
namespace ProfileDefaults {

/// Rising from 10 % at 40 °C to full speed at 95 °C.
Curve temperatureCurve();
/// Rising from the bottom at 10 % load to full speed at 90 %.
Curve loadCurve();
/// From 23:00 to 07:00.
std::vector<Window> schedule();

} // namespace ProfileDefaults

} // namespace tervale
