#pragma once

#include <cstdint>
#include <functional>

namespace tervale {

/// Whether a machine tells when it goes to sleep.
enum class SleepNews : std::uint8_t { told, untold };

/// What is to be done around a sleep of the machine. All are called on the main thread.
struct SleepHandlers {
    /// The machine sleeps once it returns, or a few seconds later.
    std::function<void()> before;
    /// Also if the machine did not sleep after all.
    std::function<void()> after;
    /// Whether `before` will be called in time: when that turns out not to be so, and when it is so
    /// again. May be empty.
    std::function<void(SleepNews)> news{};
};

} // namespace tervale
