#pragma once

#include "tervalectl/Chart.h"

#include <string>

namespace tervale {

/// The chart as an SVG document: in the window's light colours, and in its dark ones where the
/// reader's system is dark.
std::string chartSVG(const Chart& chart);

/// Of the picture, in pixels.
inline constexpr int chartWidth = 960;
inline constexpr int chartHeight = 540;

} // namespace tervale
