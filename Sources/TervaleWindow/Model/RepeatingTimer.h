#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tervale {

/// Makes a timer that calls `handler` every `interval`, each time up to `tolerance` late, as long
/// as the object that comes back lives.
using TimerFactory = std::function<std::shared_ptr<void>(std::chrono::milliseconds interval,
                                                         std::chrono::milliseconds tolerance,
                                                         std::function<void()> handler)>;

/// A timer of the toolkit's, on the thread that makes it. It is late by a twentieth of the interval
/// at most, and only where that is tolerated.
std::shared_ptr<void> makeToolkitTimer(std::chrono::milliseconds interval,
                                       std::chrono::milliseconds tolerance,
                                       std::function<void()> handler);

} // namespace tervale
