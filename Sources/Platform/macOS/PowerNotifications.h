#pragma once

#include "Platform/SleepWatch.h"

#include <memory>

namespace tervale {

/// Calls the handlers around each sleep of the machine, on the main thread, for as long as what it
/// returns lives; the machine waits for the first. Null if the system takes no one on.
std::shared_ptr<void> powerNotifications(SleepHandlers handlers);

} // namespace tervale
