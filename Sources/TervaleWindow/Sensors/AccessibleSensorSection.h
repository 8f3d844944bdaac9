#pragma once

namespace tervale {

class SensorSectionCard;

/// Makes a section known to assistive technology as a list whose items are its sensors. Before the
/// section is named; more calls do nothing.
void registerAccessibleSensorSection();

/// Tells assistive technology, if there is any, that a section holds other sensors than before.
void announceSensorList(SensorSectionCard& card);
/// Tells it that the focus went to the section's current row.
void announceCurrentSensor(SensorSectionCard& card);

} // namespace tervale
