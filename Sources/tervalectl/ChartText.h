#pragma once

#include "tervalectl/Chart.h"
#include "tervalectl/TextStyle.h"

#include <string>

namespace tervale {

/// The chart in characters: temperatures above, speeds below, the times under both. Ends with a
/// line break, and has as many lines whatever the chart holds.
std::string chartText(const Chart& chart, const TextStyle& style);

} // namespace tervale
