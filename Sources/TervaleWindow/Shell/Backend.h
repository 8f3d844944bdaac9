#pragma once

#include "Profiles/NotificationCenter.h"
#include "SMC/IORegistry.h"

#include <functional>
#include <memory>

namespace tervale {

/// The machine that the window shows, and the channel to the agent that drives its fans.
class Backend {
  public:
    virtual ~Backend() = default;

    virtual IORegistry& registry() = 0;
    virtual NotificationCenter& notificationCenter() = 0;

    /// The machine that this process runs on.
    static std::unique_ptr<Backend> system();
    /// A simulated Mac whose load is this machine's own, with an agent, within this process.
    static std::unique_ptr<Backend> simulation();

    /// Runs the task from the main thread's event loop. May be called from any thread.
    static void runOnMainThread(std::function<void()> task);
};

} // namespace tervale
