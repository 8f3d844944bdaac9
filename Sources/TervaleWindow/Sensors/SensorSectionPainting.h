#pragma once

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Sensors/SensorCatalog.h"
#include "TervaleWindow/Sensors/SensorSectionLayout.h"

#include <QPainter>

namespace tervale {

void paintSensorHeader(QPainter& painter, const SensorSection& section,
                       const SensorSectionLayout& layout, const Colors& colors);
/// A row as it is drawn.
struct ShownSensorRow {
    const SensorRow& row;
    SensorRowLayout layout;
    /// How many pixels of the bar are lit.
    double lit = 0;
};
/// Leaves out what lies outside `exposed`.
void paintSensorRow(QPainter& painter, const ShownSensorRow& shown, const Colors& colors,
                    Qt::LayoutDirection direction, const QRect& exposed);
/// The ring around the row that the keyboard is at.
void paintCurrentRow(QPainter& painter, const SensorRowLayout& layout, const Colors& colors);

} // namespace tervale
