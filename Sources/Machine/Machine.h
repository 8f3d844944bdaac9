#pragma once

#include "Profiles/NotificationCenter.h"
#include "SMC/IORegistry.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace tervale {

/// The machine that a program shows, and the channel to the agent that drives its fans. Needs an
/// application object of the toolkit. Main thread.
class Backend {
  public:
    virtual ~Backend() = default;

    virtual IORegistry& registry() = 0;
    virtual NotificationCenter& notificationCenter() = 0;
    /// Percent of the machine's processors in use since this was last asked, 0 to 100; nothing
    /// when it is not known, as at the first time.
    virtual std::optional<double> processorLoad() = 0;

    /// The machine that this process runs on.
    static std::unique_ptr<Backend> system();
    /// The same with the controller that another process lends on this socket; null on a system
    /// where no controllers are lent.
    static std::unique_ptr<Backend> lentController(const std::filesystem::path& socket);
    /// A simulated Mac whose load is this machine's own, with an agent, within this process.
    static std::unique_ptr<Backend> simulation();

    /// Runs the task from the main thread's event loop. May be called from any thread.
    static void runOnMainThread(std::function<void()> task);
};

} // namespace tervale
