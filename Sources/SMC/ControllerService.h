#pragma once

#include "SMC/IORegistry.h"

namespace tervale {

/// Opens a connection to the controller's service. Throws `SMCError` where there is none, or where
/// it lets nobody in.
IORegistry::Connection openController(IORegistry& registry);

} // namespace tervale
