#pragma once

#include "Profiles/Controller.h"

#include <cstdint>
#include <functional>

namespace tervale {

/// Whether the fans may be taken from the firmware: not without a guard that hands them back should
/// this process go, not for long without a temperature of the CPU or the GPU, and not while the
/// machine goes to sleep.
class FanPermission {
  public:
    /// After so many control ticks without a temperature the fans are given up.
    static constexpr int mostBlindTicks = 10;
    /// A machine that should sleep and has had so many ticks is awake, though nobody said so.
    static constexpr int mostTicksToSleep = 60;

    /// Why less is granted than was wanted.
    enum class Refusal : std::uint8_t { none, unguarded, blind };

    /// Sees to it that a guard stands, which is also a sign of life to it; false if none does. Null
    /// where no guard is needed. Called at each tick from the first time that a fan is to be taken.
    using Guard = std::function<bool()>;

    explicit FanPermission(Guard guard) : guard(std::move(guard)) {}

    /// A control tick begins.
    void tick();
    /// A temperature of the CPU or the GPU could be read.
    void noteReading() { blindTicks = 0; }
    void sleep() { ticksToSleep = mostTicksToSleep; }
    void wake() { ticksToSleep = 0; }
    bool sleeps() const { return ticksToSleep > 0; }

    /// The target, or automatic where it may not be had. While the safety latch is engaged a
    /// missing reading refuses nothing.
    Target grant(const Target& wanted, bool safetyEngaged);
    /// Why the last target was refused; none for one that was granted, or refused because the
    /// machine goes to sleep.
    Refusal refusal() const { return why; }

  private:
    Guard guard;
    bool guardNeeded = false;
    int blindTicks = 0;
    /// 0 while the machine is awake.
    int ticksToSleep = 0;
    Refusal why = Refusal::none;
};

} // namespace tervale
