#pragma once

#include "SMC/Sensors.h"
#include "Simulation/HeatModel.h"
#include "Simulation/RandomSource.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tervale {

/// The temperature sensors of the simulated machine. Those of one group see the same part from
/// different places: each is somewhat warmer or cooler, follows more or less slowly and has its own
/// noise.
class SensorBank {
  public:
    enum class Presence { constant, comeAndGo };

    /// As many sensors as asked for, over all groups; at most `most`.
    SensorBank(std::size_t count, RandomSource& random);

    static constexpr std::size_t most = 500;

    std::size_t size() const { return sensors.size(); }
    const std::string& key(std::size_t index) const { return sensors[index].key; }
    /// Degrees Celsius; a number that nobody believes while the sensor is gone.
    double reading(std::size_t index) const;
    /// The hottest processor or graphics sensor.
    double hottest() const;

    /// Takes on the temperatures at once.
    void settle(const HeatModel& heat);
    void advance(double seconds, const HeatModel& heat, Presence presence, RandomSource& random);

  private:
    struct Sensor {
        std::string key;
        SensorGroup group;
        /// How much warmer it is than its part, as a share of the part's warmth above the room.
        double share;
        /// In seconds.
        double timeConstant;
        double noise;
        double value;
        /// How many seconds it stays away.
        double gone;

        double goal(const HeatModel& heat) const;
    };

    std::vector<Sensor> sensors;
};

} // namespace tervale
