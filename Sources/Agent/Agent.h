#pragma once

#include "Agent/AgentPreferences.h"
#include "Agent/AgentStatus.h"
#include "Agent/FanDriver.h"
#include "Agent/FanPermission.h"
#include "Agent/SensorSearch.h"
#include "Profiles/Bridge.h"
#include "Profiles/Clock.h"
#include "Profiles/Controller.h"
#include "Profiles/LoadReading.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Preferences.h"
#include "Profiles/SensorSampler.h"
#include "SMC/SMC.h"

#include <functional>
#include <optional>
#include <string>

namespace tervale {

/// Owns the fans, answers the window's commands and publishes what it does. It knows only the
/// seams, and so drives whatever controller stands behind them.
///
/// A running timer's action comes before the selection, and the safety latch before both. A command
/// takes effect when it arrives. Commands that arrive together are stored, driven and confirmed
/// together: by one published state, which holds them all. A request for the state that finds
/// nothing to confirm is answered at once. What happens by itself is published as it happens. Main
/// thread.
class Agent {
  public:
    /// What the agent works with; all of it outlives the agent.
    struct Seams {
        SMC& smc;
        NotificationCenter& center;
        Preferences& preferences;
        const Clock& clock;
        LoadReading load;
        FanPermission::Guard guard{};
        AgentStatus::Writing writing = AgentStatus::Writing::done;
        /// Reaches the controller: why it cannot, nothing once it has. Asked at each tick until
        /// then. Null for one that is reached already.
        std::function<std::optional<std::string>()> reach{};
        /// Runs the task once what has arrived by now is received. Null: at once, so that each
        /// command has a state of its own.
        std::function<void(std::function<void()>)> later{};
        /// Has the system start the agent at login, or no longer: why it cannot, nothing if all is
        /// well. Null where only the flag is kept.
        std::function<std::optional<std::string>(bool)> loginItem{};
        /// Hears, a line each, what the agent decides and posts. May be null.
        std::function<void(const std::string&)> trace{};
    };

    static constexpr double longestTimer = 24 * 60 * 60;
    /// How long the answer to an update check is shown, in seconds.
    static constexpr double noticeDuration = 6;

    /// Takes up the stored profiles and selection, drives the fans for the first time and
    /// publishes its state.
    explicit Agent(Seams given);
    Agent(const Agent&) = delete;
    Agent& operator=(const Agent&) = delete;

    /// One control tick. Called once a second.
    void tick();
    /// Hands the fans back before the machine sleeps; false if that failed. They are taken again
    /// after it.
    bool sleep();
    void wake();
    /// Hands all fans back and says so, as the last thing before the agent goes: it ticks no more,
    /// whatever is called. Tells why if that fails.
    std::optional<std::string> end();
    /// The same without a word, since another agent speaks from now on.
    std::optional<std::string> giveWay();

    const BridgeState& currentState() const { return state; }

  private:
    struct Notice {
        std::string text;
        /// By the steady clock.
        double until;
    };

    void receive(const BridgeCommand& command);
    /// Answers who sent what nobody reads.
    void refuseOverlong();
    void perform(const BridgeCommand& command);
    void saveProfiles(const std::vector<Profile>& profiles);
    void setLaunchAtLogin(bool enabled);
    void startTimer(const command::StartTimer& timer);
    void endTimer();
    /// Confirms once all that waits has arrived.
    void confirmSoon();
    /// Drives, stores and confirms what has arrived.
    void confirm();
    /// What is not stored yet.
    void store();
    void notify(std::string text);
    void tellUnreadable();
    /// Evaluates what is in force, and drives the fans.
    void control();
    /// Renews the status.
    void tellStatus();
    std::optional<std::string> drive();
    Target evaluate();
    void takeUpSensors();
    void publish();
    void trace(const std::string& line) const;

    Seams seams;
    Bridge bridge;
    AgentPreferences preferences;
    Controller controller;
    SensorSearch search;
    /// Of the sensors found so far; nothing until there are some.
    std::optional<SensorSampler> sampler;
    FanDriver fans;
    FanPermission permission;
    AgentStatus status;
    BridgeState state;
    std::optional<BridgeState> published;
    std::optional<Notice> notice;
    /// Why the controller has not been reached yet.
    std::optional<std::string> unreached;
    /// Of the controller, the last time that the fans were driven.
    std::optional<std::string> failure;
    std::optional<Target> traced;
    /// Commands have arrived that are not confirmed; of them, some that change something.
    bool unanswered = false;
    bool unconfirmed = false;
    /// `confirm` will be called.
    bool confirming = false;
    /// The fans are handed back for good.
    bool over = false;
    /// By the steady clock, while there is a timer.
    double timerLimit = 0;
    ObserverToken commandObserver;
    ObserverToken overlongObserver;
    ObserverToken channelObserver;
};

} // namespace tervale
