#include "Agent/Agent.h"
#include "Agent/StarterProfiles.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Profiles/ProfileStore.h"
#include "Profiles/StoringFailure.h"
#include "SMC/ScriptedRegistry.h"
#include "Simulation/Simulation.h"
#include "Support/BreakableCenter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace tervale {
namespace {

constexpr std::int64_t noon = 720;
const Curve flatAt70{{{0, 0.7}, {100, 0.7}}};

Profile profileNamed(const std::string& name, ProfileKind kind) {
    return {UUID::random(), name, std::move(kind)};
}

/// An agent on a simulated Mac at noon in virtual time, and what a window would hear of it.
class AgentTest : public testing::Test {
  protected:
    explicit AgentTest(Scenario scenario = Scenario::idle) : scenario(scenario) { start(); }

    void start() {
        simulation.reset();
        simulation =
            std::make_unique<Simulation>(SimulatedMacOptions{.scenario = scenario, .fillers = 50},
                                         center, preferences, Date{12 * 3600.0});
    }
    void send(const BridgeCommand& command) { Bridge(center).send(command); }
    const BridgeState& last() const { return heard.back(); }
    /// What the command makes the agent publish.
    std::size_t answersTo(const BridgeCommand& command) {
        const std::size_t before = heard.size();
        send(command);
        return heard.size() - before;
    }
    Fan fan(std::int64_t index) { return SMC(simulation->mac()).fan(index); }

    Scenario scenario;
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    std::vector<BridgeState> heard;
    ObserverToken token =
        Bridge(center).onState([this](const BridgeState& state) { heard.push_back(state); });
    std::unique_ptr<Simulation> simulation;
};

TEST_F(AgentTest, PublishesItsStateOnceWhenItStarts) {
    ASSERT_EQ(heard.size(), 1U);
    BridgeState expected;
    expected.profiles = starterProfiles();
    EXPECT_EQ(last(), expected);
}

TEST_F(AgentTest, StaysSilentWhileNothingChanges) {
    simulation->advance(20);
    EXPECT_EQ(heard.size(), 1U);
}

TEST_F(AgentTest, PublishesOnRequest) {
    EXPECT_EQ(answersTo(command::RequestState{}), 1U);
    EXPECT_EQ(heard[0], heard[1]);
}

TEST_F(AgentTest, RunsASelectedFixedSpeedOnEveryFansOwnRange) {
    EXPECT_EQ(answersTo(command::Select{action::Fixed{0.5}}), 1U);
    EXPECT_EQ(last().selection, Action(action::Fixed{0.5}));
    EXPECT_EQ(last().status, std::nullopt);
    EXPECT_NEAR(fan(0).target, 1200 + 0.5 * 4577, 0.01);
    EXPECT_NEAR(fan(1).target, 1300 + 0.5 * 4941, 0.01);
    EXPECT_EQ(answersTo(command::Select{action::Automatic{}}), 1U);
    EXPECT_FALSE(fan(0).manual || fan(1).manual);
}

TEST_F(AgentTest, TakesASpeedOutsideTheRangeForTheNearerEnd) {
    send(command::Select{action::Fixed{7}});
    EXPECT_EQ(last().selection, Action(action::Fixed{1}));
    send(command::StartTimer{action::Fixed{-1}, 60});
    EXPECT_EQ(last().timerAction, Action(action::Fixed{0}));
}

TEST_F(AgentTest, FollowsASelectedProfile) {
    const Profile steady = profileNamed(
        "Steady", kind::Temperature{TemperatureInput::averageOf(SensorGroup::cpu), flatAt70});
    EXPECT_EQ(answersTo(command::SaveProfiles{{steady}}), 1U);
    EXPECT_EQ(last().profiles, std::vector{steady});
    EXPECT_EQ(answersTo(command::Select{action::Profile{steady.id}}), 1U);
    EXPECT_NEAR(fan(0).target, 1200 + 0.7 * 4577, 0.01);
    send(command::SaveProfiles{{}});
    EXPECT_FALSE(fan(0).manual) << "a profile that is gone leaves the fans to the system";
}

TEST_F(AgentTest, FollowsTheProcessorsLoad) {
    const Profile load = profileNamed("Load", kind::Load{{{{0, 0.2}, {100, 1}}}});
    send(command::SaveProfiles{{load}});
    send(command::Select{action::Profile{load.id}});
    const double percent = simulation->mac().load();
    EXPECT_NEAR(fan(0).target, 1200 + (0.2 + 0.008 * percent) * 4577, 1);
}

TEST_F(AgentTest, RunsAScheduleByTheClocksMinute) {
    const Profile day =
        profileNamed("Day", kind::Schedule{{{noon, noon + 1, action::Fixed{1}},
                                            {noon + 1, noon + 60, action::Fixed{0}}}});
    send(command::SaveProfiles{{day}});
    send(command::Select{action::Profile{day.id}});
    EXPECT_EQ(fan(0).target, 5777);
    simulation->advance(59);
    EXPECT_EQ(fan(0).target, 5777);
    simulation->advance(1);
    EXPECT_EQ(fan(0).target, 1200);
}

TEST_F(AgentTest, RunsATimersActionAndThenReturnsToTheSelection) {
    send(command::Select{action::Fixed{0}});
    EXPECT_EQ(answersTo(command::StartTimer{action::Fixed{1}, 900}), 1U);
    EXPECT_EQ(last().timerAction, Action(action::Fixed{1}));
    EXPECT_EQ(last().timerEnds, Date{12 * 3600.0 + 900});
    EXPECT_EQ(last().selection, Action(action::Fixed{0}));
    EXPECT_EQ(fan(0).target, 5777);
    simulation->advance(899);
    EXPECT_EQ(fan(0).target, 5777);
    const std::size_t before = heard.size();
    simulation->advance(1);
    EXPECT_EQ(heard.size(), before + 1);
    EXPECT_EQ(last().timerAction, std::nullopt);
    EXPECT_EQ(last().timerEnds, std::nullopt);
    EXPECT_EQ(fan(0).target, 1200);
}

TEST_F(AgentTest, EndsATimerEarly) {
    send(command::StartTimer{action::Fixed{1}, 900});
    EXPECT_EQ(answersTo(command::CancelTimer{}), 1U);
    EXPECT_EQ(last().timerAction, std::nullopt);
    EXPECT_FALSE(fan(0).manual);
    EXPECT_EQ(answersTo(command::CancelTimer{}), 1U) << "without a timer it still answers";
}

TEST_F(AgentTest, KeepsATimerRunningWhenTheSelectionChanges) {
    send(command::StartTimer{action::Fixed{1}, 900});
    send(command::Select{action::Fixed{0.25}});
    EXPECT_EQ(last().timerAction, Action(action::Fixed{1}));
    EXPECT_EQ(fan(0).target, 5777);
}

TEST_F(AgentTest, ReplacesATimerByANewOne) {
    send(command::StartTimer{action::Fixed{1}, 900});
    send(command::StartTimer{action::Fixed{0}, 60});
    EXPECT_EQ(last().timerEnds, Date{12 * 3600.0 + 60});
    EXPECT_EQ(fan(0).target, 1200);
}

TEST_F(AgentTest, RefusesATimerThatNobodyCanMean) {
    for (const double duration : {0.0, -900.0, 90000.0, 1e300}) {
        EXPECT_EQ(answersTo(command::StartTimer{action::Fixed{1}, duration}), 1U);
        EXPECT_EQ(last().timerAction, std::nullopt) << duration;
        EXPECT_EQ(last().timerEnds, std::nullopt);
        EXPECT_EQ(last().status, "That timer was not set: it must end within 24 hours.");
    }
    EXPECT_FALSE(fan(0).manual);
}

TEST_F(AgentTest, AnswersAnUpdateCheckForAFewSeconds) {
    EXPECT_EQ(answersTo(command::CheckForUpdates{}), 1U);
    EXPECT_EQ(last().status, "Tervale is up to date.");
    simulation->advance(5);
    EXPECT_EQ(last().status, "Tervale is up to date.");
    simulation->advance(1);
    EXPECT_EQ(last().status, std::nullopt);
}

TEST_F(AgentTest, DropsTheAnswerToAnUpdateCheckAtTheNextSelection) {
    send(command::CheckForUpdates{});
    send(command::Select{action::Fixed{0.5}});
    EXPECT_EQ(last().status, std::nullopt);
}

TEST_F(AgentTest, RemembersEverythingButTheTimerWhenItIsStartedAgain) {
    const Profile profile = profileNamed("Mine", kind::Load{flatAt70});
    send(command::SaveProfiles{{profile}});
    send(command::Select{action::Profile{profile.id}});
    EXPECT_EQ(answersTo(command::SetLaunchAtLogin{true}), 1U);
    send(command::StartTimer{action::Fixed{1}, 900});
    start();
    BridgeState expected;
    expected.selection = action::Profile{profile.id};
    expected.launchAtLogin = true;
    expected.profiles = {profile};
    EXPECT_EQ(last(), expected);
    EXPECT_NEAR(fan(0).target, 1200 + 0.7 * 4577, 0.01);
    send(command::SetLaunchAtLogin{false});
    start();
    EXPECT_FALSE(last().launchAtLogin);
}

TEST_F(AgentTest, DoesNotOfferProfilesAgainToWhoHasDeletedThem) {
    send(command::SaveProfiles{{}});
    start();
    EXPECT_TRUE(last().profiles.empty());
}

TEST_F(AgentTest, RefusesProfilesThatWouldSilenceIt) {
    const std::vector<Profile> before = last().profiles;
    std::string name(Bridge::maximumTextSize - 1000, 'n');
    EXPECT_EQ(answersTo(command::SaveProfiles{{profileNamed(name, kind::Load{})}}), 1U);
    EXPECT_EQ(last().profiles, before);
    EXPECT_EQ(last().status, "Those profiles were not saved: they are too long.");
    name.resize(name.size() - 1000);
    EXPECT_EQ(answersTo(command::SaveProfiles{{profileNamed(name, kind::Load{})}}), 1U);
    EXPECT_EQ(last().profiles.size(), 1U);
    EXPECT_EQ(last().status, std::nullopt);
}

/// Preferences that fail as a disk does: nothing is read, or nothing is written.
class FailingPreferences final : public Preferences {
  public:
    std::optional<Data> data(const std::string& key) const override {
        return canRead ? kept.data(key) : std::nullopt;
    }
    bool contains(const std::string& key) const override { return kept.contains(key); }
    std::optional<std::string> setData(const std::string& key, const Data& data) override {
        ++writes;
        if (writing == Writing::fails)
            return "No space left on device";
        return writing == Writing::works ? kept.setData(key, data) : std::nullopt;
    }
    bool keepCopy(const std::string& key, const std::string& copy) override {
        return canKeep && kept.keepCopy(key, copy);
    }
    std::vector<std::string> keys(const std::string& prefix) const override {
        return kept.keys(prefix);
    }
    void remove(const std::string& key) override { kept.remove(key); }

    InMemoryPreferences kept;
    bool canRead = true;
    bool canKeep = true;
    /// Some disks say nothing.
    enum class Writing { works, fails, failsSilently } writing = Writing::works;
    int writes = 0;
};

class AgentOnAFailingDisk : public testing::Test {
  protected:
    void start() {
        simulation.reset();
        simulation = std::make_unique<Simulation>(
            SimulatedMacOptions{.scenario = Scenario::idle, .fillers = 0}, center, disk);
    }
    const BridgeState& state() { return simulation->agent()->currentState(); }
    std::vector<Profile> stored() { return ProfileStore(disk.kept).profiles(); }
    void send(const BridgeCommand& command) { Bridge(center).send(command); }

    using Writing = FailingPreferences::Writing;
    static constexpr const char* notStored =
        "Not everything could be stored: No space left on device. Another attempt follows.";
    static constexpr const char* unreadable =
        "The stored profiles cannot be read. They stay until you save others.";
    InProcessNotificationCenter center;
    FailingPreferences disk;
    std::unique_ptr<Simulation> simulation;
    const std::vector<Profile> mine{profileNamed("Mine", kind::Load{flatAt70})};
};

TEST_F(AgentOnAFailingDisk, TellsThatASaveCouldNotBeStoredAndTriesAgain) {
    start();
    disk.writing = Writing::fails;
    send(command::SaveProfiles{mine});
    EXPECT_EQ(state().profiles, mine);
    EXPECT_EQ(state().status, notStored);
    send(command::Select{action::Fixed{0.5}});
    simulation->advance(30);
    EXPECT_EQ(state().status, notStored);
    EXPECT_NE(stored(), mine);
    disk.writing = Writing::works;
    simulation->advance(CheckedPreferences::interval + 1);
    EXPECT_EQ(state().status, std::nullopt);
    EXPECT_EQ(stored(), mine);
    EXPECT_EQ(ProfileStore(disk.kept).selection(), Action(action::Fixed{0.5}));
}

TEST_F(AgentOnAFailingDisk, OffersTheStarterProfilesThoughTheyCannotBeStored) {
    disk.writing = Writing::fails;
    start();
    EXPECT_EQ(state().profiles, starterProfiles());
    EXPECT_EQ(state().status, notStored);
}

TEST_F(AgentOnAFailingDisk, ReplacesNoUnreadableProfilesThatCannotBeKept) {
    ProfileStore(disk.kept).setProfiles(mine);
    disk.canRead = false;
    disk.canKeep = false;
    start();
    send(command::SaveProfiles{{profileNamed("Other", kind::Load{flatAt70})}});
    EXPECT_EQ(state().status, "Those profiles were not saved: the ones that cannot be read could "
                              "not be kept beside them.");
    EXPECT_EQ(stored(), mine);
    EXPECT_NE(state().profiles.size(), 1U);
}

TEST_F(AgentOnAFailingDisk, ReadsBackWhatItStored) {
    start();
    disk.writing = Writing::failsSilently;
    send(command::SetLaunchAtLogin{true});
    EXPECT_EQ(state().status, "Not everything could be stored: it does not read back. Another "
                              "attempt follows.");
    disk.writing = Writing::works;
    simulation->advance(CheckedPreferences::interval + 1);
    EXPECT_EQ(state().status, std::nullopt);
}

TEST_F(AgentOnAFailingDisk, TriesAgainOnceAnInterval) {
    start();
    disk.writing = Writing::fails;
    send(command::SaveProfiles{mine});
    disk.writes = 0;
    for (int request = 0; request < 100; ++request)
        send(command::RequestState{});
    EXPECT_EQ(disk.writes, 0);
    simulation->advance(10 * CheckedPreferences::interval);
    EXPECT_EQ(disk.writes, 10);
}

TEST_F(AgentOnAFailingDisk, TellsItBesideWhateverElseThereIsToTell) {
    start();
    disk.writing = Writing::fails;
    send(command::SaveProfiles{mine});
    send(command::CheckForUpdates{});
    EXPECT_EQ(state().status, std::string("Tervale is up to date. ") + notStored);
    EXPECT_TRUE(tellsStoringFailure(state()));
}

TEST_F(AgentOnAFailingDisk, StoresTheStartersOnlyWhereNothingWasStoredInTheMeantime) {
    disk.writing = Writing::fails;
    start();
    ProfileStore(disk.kept).setProfiles(mine);
    disk.writing = Writing::works;
    simulation->advance(CheckedPreferences::interval + 1);
    EXPECT_EQ(stored(), mine);
    EXPECT_EQ(state().profiles, mine);
    EXPECT_EQ(state().status, std::nullopt);
}

TEST_F(AgentOnAFailingDisk, LeavesASelectionThatCannotBeReadAtTheStart) {
    start();
    ProfileStore(disk.kept).setSelection(action::Fixed{0.5});
    disk.canRead = false;
    start();
    send(command::StartTimer{action::Fixed{1}, 2});
    send(command::SetLaunchAtLogin{true});
    EXPECT_EQ(state().selection, Action(action::Automatic{}));
    EXPECT_EQ(ProfileStore(disk.kept).selection(), Action(action::Fixed{0.5}));
    disk.canRead = true;
    simulation->advance(CheckedPreferences::interval + 1);
    EXPECT_EQ(state().selection, Action(action::Fixed{0.5}));
    EXPECT_EQ(state().profiles, starterProfiles());
}

TEST_F(AgentOnAFailingDisk, TellsOnceThatProfilesCannotBeRead) {
    disk.kept.setData("profiles", {});
    start();
    simulation->advance(1000);
    EXPECT_EQ(state().status, unreadable) << "until somebody is there";
    send(command::Select{action::Fixed{0.5}});
    simulation->advance(1000);
    EXPECT_EQ(state().status, std::nullopt);
}

TEST_F(AgentOnAFailingDisk, KeepsTheLastThreeThatCouldNotBeRead) {
    for (const char* text : {"1", "2", "3", "4"}) {
        disk.kept.setString("profiles", text);
        start();
        simulation->advance(1);
        send(command::SaveProfiles{mine});
    }
    EXPECT_EQ(disk.kept.keys("profiles.unreadable").size(), 3U);
    EXPECT_EQ(stored(), mine);
}

TEST_F(AgentOnAFailingDisk, KeepsProfilesThatCannotBeReadAtTheStart) {
    ProfileStore(disk.kept).setProfiles(mine);
    disk.canRead = false;
    start();
    EXPECT_TRUE(state().profiles.empty());
    EXPECT_EQ(state().status, unreadable);
    EXPECT_EQ(stored(), mine);
    disk.canRead = true;
    simulation->advance(100);
    EXPECT_EQ(stored(), mine);
    EXPECT_EQ(state().profiles, mine) << "taken up as soon as they can be read";
    EXPECT_EQ(state().status, std::nullopt);
}

TEST_F(AgentOnAFailingDisk, KeepsATextThatIsNoListUntilAPersonSavesAndThenBesideIt) {
    const Preferences::Data text{std::byte{'['}};
    disk.kept.setData("profiles", text);
    start();
    EXPECT_EQ(state().status, unreadable);
    send(command::Select{action::Fixed{0.5}});
    EXPECT_EQ(disk.kept.data("profiles"), text);
    send(command::SaveProfiles{});
    const std::string beside = "profiles.unreadable-2001-01-01T000000Z";
    EXPECT_EQ(state().status, "The profiles that could not be read are kept as " + beside + ".");
    EXPECT_TRUE(stored().empty());
    EXPECT_EQ(disk.kept.data(beside), text);
    simulation->advance(Agent::noticeDuration);
    EXPECT_EQ(state().status, std::nullopt);
    start();
    EXPECT_EQ(state().status, std::nullopt) << "an empty list is a list";
}

TEST(AgentOnABreakableChannel, DrivesTheFansMeanwhileAndTellsItsStateAfterwards) {
    BreakableCenter center;
    InMemoryPreferences preferences;
    std::vector<BridgeState> heard;
    const ObserverToken token =
        Bridge(center).onState([&](const BridgeState& state) { heard.push_back(state); });
    Simulation simulation({.scenario = Scenario::idle, .fillers = 0}, center, preferences);
    Bridge(center).send(command::StartTimer{action::Fixed{1}, 60});
    heard.clear();
    center.change(Channel::gone);
    simulation.advance(30);
    EXPECT_TRUE(SMC(simulation.mac()).fan(0).manual);
    simulation.advance(31);
    EXPECT_FALSE(SMC(simulation.mac()).fan(0).manual);
    EXPECT_TRUE(heard.empty());
    center.change(Channel::back);
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0], simulation.agent()->currentState());
}

TEST_F(AgentTest, HandsTheFansBackInTheEndAndSaysSo) {
    send(command::Select{action::Fixed{1}});
    EXPECT_EQ(simulation->agent()->end(), std::nullopt);
    EXPECT_FALSE(fan(0).manual || fan(1).manual);
    EXPECT_EQ(last().status, "The agent has ended. The fans are automatic.");
    EXPECT_EQ(last().selection, Action(action::Fixed{1}));
}

TEST_F(AgentTest, LeavesTheFansAsTheyAreWhenItJustGoes) {
    send(command::Select{action::Fixed{1}});
    SimulatedMac mac({.scenario = Scenario::idle, .fillers = 0});
    SMC smc(mac);
    SimulatedClock clock;
    {
        Agent agent({smc, center, preferences, clock, {}});
        EXPECT_TRUE(smc.fan(0).manual);
    }
    EXPECT_TRUE(smc.fan(0).manual);
    EXPECT_EQ(answersTo(command::RequestState{}), 1U) << "the other agent alone answers";
}

TEST_F(AgentTest, KeepsAnsweringWhileTheControllerFails) {
    simulation->mac().failEveryCall(static_cast<IORegistry::Status>(0xe00002d8));
    EXPECT_EQ(answersTo(command::Select{action::Fixed{0.5}}), 1U);
    EXPECT_EQ(last().selection, Action(action::Fixed{0.5}));
    EXPECT_EQ(last().status, "FNum: IOKit error 0xe00002d8");
    simulation->advance(5);
    simulation->mac().failEveryCall(std::nullopt);
    simulation->advance(1);
    EXPECT_EQ(last().status, std::nullopt);
    EXPECT_NEAR(fan(0).target, 1200 + 0.5 * 4577, 0.01);
}

TEST(AgentOnAnOddController, LooksForNoSensorsAmongKeysThatCannotBeCounted) {
    for (const float count : {std::nanf(""), 3e38F, -2.0F, 1e9F}) {
        test::ScriptedRegistry registry;
        registry.setByte("FNum", 0);
        registry.setFloat("#KEY", count);
        SMC smc(registry);
        InProcessNotificationCenter center;
        InMemoryPreferences preferences;
        SimulatedClock clock;
        Agent agent({smc, center, preferences, clock, {}});
        agent.tick();
        EXPECT_EQ(agent.currentState().profiles, starterProfiles()) << count;
    }
}

TEST_F(AgentTest, FindsTheSensorsLaterWhenNoneAnsweredAtFirst) {
    SimulatedMac mac({.scenario = Scenario::idle, .fillers = 0});
    SMC smc(mac);
    const auto sensors = smc.temperatureSensors();
    for (const TemperatureSensor& sensor : sensors)
        mac.inject(sensor.key, fault::RefusedValue{132});
    SimulatedClock clock;
    const Profile steady = profileNamed(
        "Steady", kind::Temperature{TemperatureInput::hottestOf(SensorGroup::gpu), flatAt70});
    ProfileStore(preferences).setProfiles({steady});
    ProfileStore(preferences).setSelection(action::Profile{steady.id});
    Agent agent({smc, center, preferences, clock, {}});
    EXPECT_FALSE(smc.fan(0).manual);
    for (const TemperatureSensor& sensor : sensors)
        mac.heal(sensor.key);
    agent.tick();
    EXPECT_TRUE(smc.fan(0).manual);
}

TEST_F(AgentTest, FindsTheSensorsLaterWhenItCouldNotAtFirst) {
    SimulatedMac mac({.scenario = Scenario::idle, .fillers = 0});
    SMC smc(mac);
    mac.inject("#KEY", fault::Refused{132});
    SimulatedClock clock;
    const Profile steady = profileNamed(
        "Steady", kind::Temperature{TemperatureInput::hottestOf(SensorGroup::gpu), flatAt70});
    ProfileStore(preferences).setProfiles({steady});
    ProfileStore(preferences).setSelection(action::Profile{steady.id});
    Agent agent({smc, center, preferences, clock, {}});
    EXPECT_FALSE(smc.fan(0).manual);
    mac.heal("#KEY");
    agent.tick();
    EXPECT_TRUE(smc.fan(0).manual);
}

class AgentInAHeatwave : public AgentTest {
  protected:
    AgentInAHeatwave() : AgentTest(Scenario::heatwave) {}

    /// Seconds until the status is as wanted, or the most.
    int secondsUntil(bool tooHot, int most) {
        int seconds = 0;
        while (last().status.has_value() != tooHot && seconds < most) {
            simulation->advance(1);
            ++seconds;
        }
        return seconds;
    }
};

TEST_F(AgentInAHeatwave, RunsTheFansAtTheirMaximumUntilTheHeatIsOver) {
    ASSERT_LT(secondsUntil(true, 900), 900);
    EXPECT_EQ(last().status, "Too hot: Max until every CPU and GPU sensor is below 85 °C.");
    EXPECT_EQ(last().selection, Action(action::Automatic{}));
    EXPECT_EQ(fan(0).target, 5777);
    EXPECT_EQ(fan(1).target, 6241);
    const int cooling = secondsUntil(false, 900);
    EXPECT_GT(cooling, 10) << "a machine does not cool at once";
    ASSERT_LT(cooling, 900);
    EXPECT_FALSE(fan(0).manual);
    ASSERT_LT(secondsUntil(true, 900), 900) << "and it gets hot again";
}

TEST_F(AgentInAHeatwave, IsCalmWithTheFansAtTheirMaximumFromTheStart) {
    send(command::Select{action::Fixed{1}});
    EXPECT_EQ(secondsUntil(true, 600), 600);
}

} // namespace
} // namespace tervale
