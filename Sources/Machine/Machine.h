#pragma once

#include "Machine/MachineChoice.h"
#include "Profiles/LoadReading.h"
#include "Profiles/NotificationCenter.h"
#include "SMC/IORegistry.h"

#include <functional>
#include <memory>
#include <stdexcept>

namespace tervale {

/// The machine that a program shows, and the channel to the agent that drives its fans. A plain
/// value: its members share whatever stands behind them, and keep it alive. Main thread.
struct Machine {
    std::shared_ptr<IORegistry> registry;
    std::shared_ptr<NotificationCenter> notificationCenter;
    /// Over the time since it was last asked; nothing the first time.
    LoadReading load;
};

/// Thrown for a machine that cannot be had on this system. `what()` is one line for people.
struct NoSuchMachine : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The machine of the choice. Needs an application object of the toolkit, whose event loop delivers
/// notifications and lets time pass on a simulated Mac. Throws `NoSuchMachine`.
Machine makeMachine(const MachineChoice& choice);

/// Runs the task from the main thread's event loop. May be called from any thread.
void runOnMainThread(std::function<void()> task);

} // namespace tervale
