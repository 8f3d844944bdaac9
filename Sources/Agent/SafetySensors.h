#pragma once

#include "SMC/SMC.h"

#include <optional>
#include <vector>

namespace tervale {

/// Every temperature sensor that the controller answers for. None while the controller cannot tell
/// its keys, or tells a count of them that no machine has.
std::vector<TemperatureSensor> findSensors(SMC& smc);

/// Reads what the safety latch goes by, for who has no sampler: every sensor of the CPU and the
/// GPU.
class SafetySensors {
  public:
    /// `smc` outlives the object.
    explicit SafetySensors(SMC& smc) : smc(smc) {}

    /// Degrees Celsius; nothing if none can be read. The sensors are looked for until there are
    /// some.
    std::optional<double> hottest();

  private:
    SMC& smc;
    std::vector<TemperatureSensor> sensors;
};

} // namespace tervale
