#pragma once

namespace tervale {

class SensorSectionCard;

/// Makes a section known to assistive technology as a list whose items are its sensors. Before the
/// section is named; more calls do nothing.
void registerAccessibleSensorSection();

/// Tells assistive technology, if there is any, that a section holds other sensors than before.
void tellSensorList(SensorSectionCard& card);
/// Tells it that the focus went to the section's current row.
void tellCurrentSensor(SensorSectionCard& card);
/// Tells it that this row reads otherwise now. Of the other rows nothing is told: readings tick.
void tellCurrentReading(SensorSectionCard& card);

} // namespace tervale
