#pragma once

#include "Agent/SensorSearch.h"
#include "SMC/SMC.h"

#include <optional>

namespace tervale {

/// Reads what the safety latch goes by, for who has no sampler: every sensor of the CPU and the
/// GPU.
class SafetySensors {
  public:
    /// `smc` outlives the object.
    explicit SafetySensors(SMC& smc) : smc(smc), search(smc) {}

    /// Degrees Celsius; nothing if none can be read. Looks for what is still missing of the
    /// sensors.
    std::optional<double> hottest();

  private:
    SMC& smc;
    SensorSearch search;
};

} // namespace tervale
