#pragma once

#include "Simulation/HeatModel.h"
#include "Simulation/RandomSource.h"
#include "Simulation/Scenario.h"
#include "Simulation/SensorBank.h"
#include "Simulation/SimulatedFan.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tervale {

/// The physical side of a simulated Mac, in virtual time: its work, its heat, its sensors and its
/// fans. The same seed and calls give the same values to the bit.
class SimulatedHardware {
  public:
    SimulatedHardware(std::uint64_t seed, Scenario scenario, LoadReading hostLoad,
                      std::size_t fanCount, std::size_t sensorCount);

    /// Lets virtual time pass. In how many portions makes no difference.
    void advance(double seconds);

    const Workload& workload() const { return workloads.current(); }
    const SensorBank& sensors() const { return sensorBank; }
    const std::vector<SimulatedFan>& fans() const { return fanList; }

    /// Whether fans may be taken from the firmware; locking hands all of them back.
    bool isUnlocked() const { return unlocked; }
    void unlock() { unlocked = true; }
    void lock();
    /// False if the fan may not be taken now.
    [[nodiscard]] bool setFanMode(std::size_t fan, std::uint8_t mode);
    /// `rpm`, which is a number, counts as the nearest speed that the fan can do.
    void setFanTarget(std::size_t fan, double rpm);

  private:
    /// Starts out as warm as the scenario makes the machine in the long run.
    void settle();
    void step();
    void stepHeat(const Workload& workload, double hottest);

    RandomSource random;
    Scenario scenario;
    WorkloadSource workloads;
    HeatModel heat;
    SensorBank sensorBank;
    std::vector<SimulatedFan> fanList;
    bool unlocked = false;
    double elapsed = 0;
    std::int64_t steps = 0;
};

} // namespace tervale
