#pragma once

#include "SMC/Sensors.h"
#include "Simulation/Scenario.h"

#include <array>

namespace tervale {

/// How the machine's parts warm up and cool down: each part gives its heat to one common heat sink,
/// and the sink to the air, the better the more the fans blow. Temperatures in degrees Celsius.
class HeatModel {
  public:
    explicit HeatModel(double room);

    /// `airflow` from 0, no fan turns, to 1, all at their maximum. `seconds` well below the
    /// shortest time constant, which is about three seconds.
    void advance(double seconds, const Workload& workload, double airflow);

    double room() const { return roomTemperature; }
    void setRoom(double room) { roomTemperature = room; }
    double temperature(SensorGroup group) const;

  private:
    double roomTemperature;
    double sink;
    std::array<double, SensorGroup::allCases.size()> parts;
};

} // namespace tervale
