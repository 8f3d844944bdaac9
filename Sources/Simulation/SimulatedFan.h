#pragma once

#include "Base/ClosedRange.h"

#include <cstdint>

namespace tervale {

/// One fan with its part of the controller's firmware. Speeds in revolutions per minute.
struct SimulatedFan {
    ClosedRange limits;
    double actual = 0;
    double target = 0;
    /// 0 leaves the target to the firmware.
    std::uint8_t mode = 0;

    /// What the firmware makes of the hottest temperature in degrees Celsius: at the minimum while
    /// it is cool, and never loud.
    void regulate(double hottest);
    /// The wheel needs time to follow the target.
    void advance(double seconds);
    /// The share of its maximum at which the fan blows, 0 to 1.
    double airflow() const { return actual / limits.upper; }
};

} // namespace tervale
