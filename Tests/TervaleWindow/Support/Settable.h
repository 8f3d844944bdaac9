#pragma once

#include "Profiles/Clock.h"
#include "TervaleWindow/Model/RepeatingTimer.h"
#include "TervaleWindow/Model/Visibility.h"

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace tervale {

/// A clock that stands where it is put.
class SettableClock final : public Clock {
  public:
    Date time;
    int minute = 0;

    Date now() const override { return time; }
    int minuteOfDay() const override { return minute; }
    double steady() const override { return time.sinceReference; }
};

/// A window that is on screen or not as a test says.
class SettableVisibility final : public Visibility {
  public:
    bool shown = true;

    bool visible() const override { return shown; }
};

/// A timer that runs out when a test says so.
class SettableTimer {
  public:
    /// Makes this timer. It outlives what uses the factory.
    TimerFactory factory() {
        return [this](std::chrono::milliseconds interval, std::chrono::milliseconds tolerance,
                      std::function<void()> handler) {
            every = interval;
            late = tolerance;
            auto made = std::make_shared<std::function<void()>>(std::move(handler));
            called = made;
            return made;
        };
    }

    bool runs() const { return !called.expired(); }
    std::chrono::milliseconds interval() const { return every; }
    std::chrono::milliseconds tolerance() const { return late; }
    void runOut() const { (*called.lock())(); }

  private:
    std::weak_ptr<std::function<void()>> called;
    std::chrono::milliseconds every{};
    std::chrono::milliseconds late{};
};

} // namespace tervale
