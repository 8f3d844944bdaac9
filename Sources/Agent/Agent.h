#pragma once

#include "Agent/CheckedPreferences.h"
#include "Agent/FanDriver.h"
#include "Agent/FanPermission.h"
#include "Profiles/Bridge.h"
#include "Profiles/Clock.h"
#include "Profiles/Controller.h"
#include "Profiles/LoadReading.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Preferences.h"
#include "Profiles/ProfileStore.h"
#include "Profiles/SensorSampler.h"
#include "SMC/SMC.h"

#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// Owns the fans, answers the window's commands and publishes what it does. It knows only the
/// seams, and so drives whatever controller stands behind them.
///
/// A running timer's action comes before the selection, and the safety latch before both. Every
/// command is answered by exactly one published state, which confirms it; what happens by itself is
/// published as it happens. Main thread.
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
        /// Shown in the status while there is nothing else to tell.
        std::optional<std::string> remark{};
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
    /// Hands the fans back before the machine sleeps, and takes up again what is in force after it.
    void sleep();
    void wake();
    /// Hands all fans back and says so, as the last thing before the agent goes. Tells why if that
    /// fails.
    std::optional<std::string> end();

    const BridgeState& currentState() const { return state; }

  private:
    struct Notice {
        std::string text;
        Date until;
    };

    /// Take over what is stored, as far as it can be read.
    void takeUpSelection();
    void takeUpProfiles();
    void tellUnreadable();
    /// Writes and reads again what failed, if it is time to.
    void retryStorage();
    void readAgain();
    void handle(const BridgeCommand& command);
    void saveProfiles(const std::vector<Profile>& profiles);
    void startTimer(const command::StartTimer& timer);
    void endTimer();
    void notify(std::string text);
    /// Evaluates what is in force, drives the fans and renews the status.
    void control();
    Target evaluate();
    void findSensors();
    std::optional<std::string> statusOf(const std::optional<std::string>& error) const;
    void publish();

    Seams seams;
    Bridge bridge;
    CheckedPreferences preferences;
    ProfileStore store;
    Controller controller;
    /// Nothing until the sensors could be listed.
    std::optional<SensorSampler> sampler;
    FanDriver fans;
    FanPermission permission;
    BridgeState state;
    std::optional<BridgeState> published;
    std::optional<Notice> notice;
    /// Nothing was ever stored, and these may not be yet.
    bool offersStarters = false;
    /// Until other profiles are saved in place of the stored ones, or these can be read.
    bool profilesUnreadable = false;
    /// Until an action is selected in place of the stored one, or this can be read.
    bool selectionUnreadable = false;
    Date nextReading;
    /// By the steady clock, while there is a timer.
    double timerLimit = 0;
    ObserverToken commandObserver;
    ObserverToken channelObserver;
};

} // namespace tervale
