#pragma once

#include "Profiles/Curve.h"
#include "tervalectl/TextStyle.h"

#include <string>

namespace tervale {

enum class CurveAxis { temperature, load };

/// The curve in characters, its points marked: speeds upwards, the temperature in °C or the load in
/// percent to the right. Ends with a line break; empty for a curve without a point that can be
/// drawn.
std::string curveText(const Curve& curve, CurveAxis axis, const TextStyle& style);

} // namespace tervale
