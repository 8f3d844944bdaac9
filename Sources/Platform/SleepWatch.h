#pragma once

#include <functional>

namespace tervale {

/// What is to be done around a sleep of the machine. Both are called on the main thread.
struct SleepHandlers {
    /// The machine sleeps once it returns, or a few seconds later.
    std::function<void()> before;
    /// Also if the machine did not sleep after all.
    std::function<void()> after;
};

} // namespace tervale
