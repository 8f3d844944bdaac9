#pragma once

#include "Simulation/SimulatedMac.h"

#include <cstddef>

namespace tervale {

/// A Mac with 2 fans, 150 sensors and as many keys in all as asked for.
inline SimulatedMacOptions macOfKeys(std::size_t keys) {
    SimulatedMacOptions options;
    options.fillers = 0;
    options.fillers = keys - SimulatedMac(options).keyCount();
    return options;
}

} // namespace tervale
