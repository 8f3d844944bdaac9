#pragma once

namespace tervale {

class SensorSectionCard;

/// Teaches the toolkit to describe a section as a list whose items are its sensors. Done once;
/// further calls do nothing.
void makeSensorsAccessible();

/// Tells assistive technology, if there is any, that a section holds other sensors than before.
void announceSensorList(SensorSectionCard& card);
/// Tells it that the focus went to the section's current row.
void announceCurrentSensor(SensorSectionCard& card);

} // namespace tervale
