#pragma once

#include "Agent/Agent.h"
#include "Profiles/Clock.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Preferences.h"
#include "SMC/SMC.h"
#include "Simulation/SimulatedClock.h"
#include "Simulation/SimulatedMac.h"

#include <optional>

namespace tervale {

/// A simulated Mac and, if it has one, the agent that drives its fans: the one loop that moves both
/// on. Whoever owns it says how much time passes. Main thread.
class Simulation {
  public:
    /// Without an agent: the firmware drives the fans.
    explicit Simulation(const SimulatedMacOptions& options, Date start = {});
    /// In virtual time altogether: the agent's clock moves with the Mac. `center` and
    /// `preferences` outlive the object, here and below.
    Simulation(const SimulatedMacOptions& options, NotificationCenter& center,
               Preferences& preferences, Date start = {});
    /// With the agent on another clock, which outlives the object.
    Simulation(const SimulatedMacOptions& options, NotificationCenter& center,
               Preferences& preferences, const Clock& clock);
    Simulation(const Simulation&) = delete;
    Simulation& operator=(const Simulation&) = delete;

    /// Lets virtual time pass on the Mac, in seconds. At the end of every whole one the agent has
    /// its tick.
    void advance(double seconds);

    /// For the window's own connection, and for faults.
    SimulatedMac& mac() { return simulatedMac; }
    /// Null without one.
    Agent* agent() { return driver ? &*driver : nullptr; }
    /// Virtual time, which moves with the Mac.
    const Clock& clock() const { return virtualClock; }

  private:
    void startAgent(NotificationCenter& center, Preferences& preferences, const Clock& clock);

    SimulatedMac simulatedMac;
    SimulatedClock virtualClock;
    SMC smc;
    std::optional<Agent> driver;
    /// Since the last whole second.
    double pending = 0;
};

} // namespace tervale
