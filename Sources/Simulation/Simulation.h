#pragma once

#include "Agent/Agent.h"
#include "Profiles/Clock.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Preferences.h"
#include "SMC/SMC.h"
#include "Simulation/SimulatedClock.h"
#include "Simulation/SimulatedMac.h"

namespace tervale {

/// A simulated Mac with an agent that drives its fans, both moved on together by the owner's
/// timer. Main thread.
class Simulation {
  public:
    /// In virtual time altogether: the agent's clock moves with the Mac. `center` and
    /// `preferences` outlive the object, here and below.
    Simulation(const SimulatedMacOptions& options, NotificationCenter& center,
               Preferences& preferences, Date start = {});
    /// With the agent on another clock, which outlives the object.
    Simulation(const SimulatedMacOptions& options, NotificationCenter& center,
               Preferences& preferences, const Clock& clock);
    Simulation(const Simulation&) = delete;
    Simulation& operator=(const Simulation&) = delete;

    /// Lets virtual time pass on the Mac. At the end of every whole second the agent has its
    /// tick.
    void advance(double seconds);

    /// For the window's own connection, and for faults.
    SimulatedMac& mac() { return simulatedMac; }
    Agent& agent() { return simulatedAgent; }
    const Clock& clock() const { return agentClock; }

  private:
    SimulatedMac simulatedMac;
    SimulatedClock virtualClock;
    const Clock& agentClock;
    SMC smc;
    Agent simulatedAgent;
    /// Since the last tick.
    double pending = 0;
};

} // namespace tervale
