#pragma once

#include <cstdint>

namespace tervale {

/// One fan as the controller tells it. Speeds in revolutions per minute.
struct Fan {
    /// 0-based.
    std::int64_t index = 0;
    double actual = 0;
    double target = 0;
    double min = 0;
    double max = 0;
    /// Held at `target` rather than regulated by the controller.
    bool manual = false;

    bool operator==(const Fan&) const = default;
};

} // namespace tervale
