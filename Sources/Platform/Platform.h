#pragma once

#include "Profiles/InProcessNotificationCenter.h"
#include "SMC/IORegistry.h"

#include <memory>

namespace tervale {

/// What the running operating system offers behind the seams. The one place where the system's
/// adapters are chosen.
struct Platform {
    std::unique_ptr<IORegistry> registry;
    std::unique_ptr<NotificationCenter> notificationCenter;
};

/// `dispatch` runs what it is given on the main thread.
Platform makePlatform(InProcessNotificationCenter::Dispatch dispatch);

} // namespace tervale
