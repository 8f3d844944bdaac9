#pragma once

#include "Simulation/SimulatedMac.h"

namespace tervale {

/// A simulated Mac whose processor has this machine's own load.
SimulatedMacOptions asBusyAsTheHost();

} // namespace tervale
