#pragma once

#include "tervalectl/Chart.h"
#include "tervalectl/Context.h"

#include <string>
#include <string_view>

namespace tervale {

/// Where a chart goes, by the name that was given for it.
enum class ChartKind {
    svg,
    png,
    /// "-": to standard output, in characters.
    text,
    unknown,
};
ChartKind chartKind(std::string_view file);

/// Writes the chart there. The file keeps its old picture if that fails. Throws `Failure`.
void writeChart(const Chart& chart, const std::string& file, Context& context);

/// Throws what `writeChart` would, as far as that can be told before there is a chart: for a file
/// that cannot be written, and for pixels that nobody can draw.
void requireChartFile(const std::string& file, Context& context);

/// Has the window's program draw a document of SVG, at twice its size, and gives back the text of
/// the PNG file: only the window knows fonts and pixels. Looks for it in this folder, and where a
/// build leaves it. Throws `Failure`.
std::string drawByWindow(const std::string& svg, const std::string& folder);

} // namespace tervale
