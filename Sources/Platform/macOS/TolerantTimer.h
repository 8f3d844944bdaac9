#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tervale {

/// Calls `handler` every `interval` for as long as what it returns lives, each call up to
/// `tolerance` late, so that the system can wake up for many timers at once. It goes on while a
/// menu or a slider is held. Main thread; what it returns goes outside of `handler`.
std::shared_ptr<void> tolerantTimer(std::chrono::milliseconds interval,
                                    std::chrono::milliseconds tolerance,
                                    std::function<void()> handler);

} // namespace tervale
