#include "Agent/Agent.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Simulation/SimulatedClock.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

/// An agent whose Mac, clock and guard do as a test says.
class FanPermissionTest : public testing::Test {
  protected:
    void select(const Action& action) { Bridge(center).send(command::Select{action}); }
    void tick(int times = 1) {
        for (int i = 0; i < times; ++i) {
            mac.advance(1);
            clock.advance(1);
            agent.tick();
        }
    }
    void blind() {
        for (const TemperatureSensor& sensor : sensors)
            if (sensor.group == SensorGroup::cpu || sensor.group == SensorGroup::gpu)
                mac.inject(sensor.key, fault::DroppedOut{});
    }
    void seeAgain() {
        for (const TemperatureSensor& sensor : sensors)
            mac.heal(sensor.key);
    }
    bool manual() { return smc.fan(0).manual || smc.fan(1).manual; }
    std::optional<std::string> status() const { return agent.currentState().status; }

    static constexpr const char* blindReason =
        "The fans are automatic until a CPU or GPU temperature can be read again.";
    static constexpr const char* guardReason =
        "The fans are automatic, since no guard could be started that hands them back.";
    SimulatedMac mac{{.scenario = Scenario::idle, .fillers = 0}};
    SMC smc{mac};
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    SimulatedClock clock;
    bool guardStands = true;
    int signsOfLife = 0;
    Agent agent{{.smc = smc,
                 .center = center,
                 .preferences = preferences,
                 .clock = clock,
                 .load = {},
                 .guard = [this] {
                     ++signsOfLife;
                     return guardStands;
                 }}};
    const std::vector<TemperatureSensor> sensors = smc.temperatureSensors();
};

TEST_F(FanPermissionTest, NeedsNoGuardWhileTheFirmwareDrivesTheFans) {
    tick(3);
    EXPECT_EQ(signsOfLife, 0);
}

TEST_F(FanPermissionTest, HasAGuardBeforeTheFirstFanIsTaken) {
    guardStands = false;
    select(action::Fixed{1});
    EXPECT_EQ(signsOfLife, 1);
    EXPECT_FALSE(manual());
    EXPECT_EQ(smc.read("Ftst"), 0);
    EXPECT_EQ(status(), guardReason);
    guardStands = true;
    tick();
    EXPECT_TRUE(manual());
    EXPECT_EQ(status(), std::nullopt);
}

TEST_F(FanPermissionTest, HandsTheFansBackWithinATickOfTheGuardsEnd) {
    select(action::Fixed{1});
    ASSERT_TRUE(manual());
    guardStands = false;
    tick();
    EXPECT_FALSE(manual());
    EXPECT_EQ(status(), guardReason);
}

TEST_F(FanPermissionTest, GivesAGuardASignOfLifeAtEveryTickWhateverTheFansDo) {
    select(action::Fixed{1});
    select(action::Automatic{});
    const int before = signsOfLife;
    agent.sleep();
    tick(5);
    EXPECT_EQ(signsOfLife, before + 6);
}

TEST_F(FanPermissionTest, GivesAFixedSpeedUpAfterTenTicksWithoutAReadingUntilOneReturns) {
    select(action::Fixed{0.5});
    blind();
    tick(9);
    EXPECT_TRUE(manual());
    EXPECT_EQ(status(), std::nullopt);
    tick();
    EXPECT_FALSE(manual());
    EXPECT_EQ(status(), blindReason);
    select(action::Fixed{1});
    EXPECT_FALSE(manual()) << "nor does a command take them";
    tick(100);
    EXPECT_FALSE(manual());
    seeAgain();
    tick();
    EXPECT_TRUE(manual());
    EXPECT_EQ(status(), std::nullopt);
}

TEST_F(FanPermissionTest, IsContentWithOneGroupThatCanBeRead) {
    select(action::Fixed{0.5});
    blind();
    for (const TemperatureSensor& sensor : sensors)
        if (sensor.group == SensorGroup::gpu)
            mac.heal(sensor.key);
    tick(30);
    EXPECT_TRUE(manual());
}

TEST_F(FanPermissionTest, GivesACurveUpLikewise) {
    const Profile profile{UUID::random(), "Load", kind::Load{{{{0, 0.7}, {100, 0.7}}}}};
    Bridge(center).send(command::SaveProfiles{{profile}});
    SimulatedClock other;
    Agent loaded(
        {.smc = smc, .center = center, .preferences = preferences, .clock = other, .load = [] {
             return 50.0;
         }});
    select(action::Profile{profile.id});
    EXPECT_TRUE(manual());
    blind();
    for (int i = 0; i < 10; ++i)
        loaded.tick();
    EXPECT_FALSE(manual());
}

TEST_F(FanPermissionTest, LeavesAnEngagedLatchAtFullSpeed) {
    SimulatedMac hot({.scenario = Scenario::heatwave, .fillers = 0});
    SMC controller(hot);
    Agent watching({.smc = controller,
                    .center = center,
                    .preferences = preferences,
                    .clock = clock,
                    .load = {}});
    for (int i = 0; i < 900 && !controller.fan(0).manual; ++i) {
        hot.advance(1);
        watching.tick();
    }
    ASSERT_EQ(controller.fan(0).target, controller.fan(0).max);
    for (const TemperatureSensor& sensor : controller.temperatureSensors())
        hot.inject(sensor.key, fault::DroppedOut{});
    for (int i = 0; i < 100; ++i)
        watching.tick();
    EXPECT_TRUE(controller.fan(0).manual);
    EXPECT_EQ(controller.fan(0).target, controller.fan(0).max);
}

TEST_F(FanPermissionTest, HandsTheFansBackBeforeSleepAndTakesThemAfterIt) {
    select(action::Fixed{0.5});
    agent.sleep();
    EXPECT_FALSE(manual());
    EXPECT_EQ(smc.read("Ftst"), 0);
    tick(3);
    select(action::Fixed{1});
    EXPECT_FALSE(manual()) << "not while the machine goes to sleep";
    agent.wake();
    EXPECT_TRUE(manual());
    EXPECT_EQ(smc.fan(0).target, smc.fan(0).max);
}

TEST_F(FanPermissionTest, EndsATimerThatRanOutDuringSleepWhenTheMachineWakes) {
    Bridge(center).send(command::StartTimer{action::Fixed{1}, 900});
    agent.sleep();
    clock.advance(1000);
    agent.wake();
    EXPECT_FALSE(manual());
    EXPECT_EQ(agent.currentState().timerAction, std::nullopt);
}

TEST_F(FanPermissionTest, TakesTheFansAgainThoughNobodyTellsThatTheMachineStayedAwake) {
    select(action::Fixed{0.5});
    agent.sleep();
    tick(FanPermission::mostTicksToSleep - 1);
    EXPECT_FALSE(manual());
    tick();
    EXPECT_TRUE(manual());
}

TEST_F(FanPermissionTest, EndsATimerInTimeThoughTheClockIsSetBack) {
    Bridge(center).send(command::StartTimer{action::Fixed{1}, 60});
    clock.set(Date{-3600});
    tick(59);
    EXPECT_TRUE(agent.currentState().timerAction.has_value());
    tick();
    EXPECT_FALSE(agent.currentState().timerAction.has_value());
    EXPECT_FALSE(manual());
}

TEST_F(FanPermissionTest, EndsANoticeInTimeThoughTheClockIsSetBack) {
    Bridge(center).send(command::CheckForUpdates{});
    ASSERT_EQ(agent.currentState().status, "Tervale is up to date.");
    clock.set(Date{-86400});
    tick(static_cast<int>(Agent::noticeDuration) - 1);
    EXPECT_EQ(agent.currentState().status, "Tervale is up to date.");
    tick();
    EXPECT_EQ(agent.currentState().status, std::nullopt);
}

TEST_F(FanPermissionTest, EndsATimerByTheWallClockThatIsSetForward) {
    Bridge(center).send(command::StartTimer{action::Fixed{1}, 60});
    clock.set(Date{3600});
    tick();
    EXPECT_FALSE(agent.currentState().timerAction.has_value());
}

TEST_F(FanPermissionTest, SaysInADryRunThatItIsOneWhateverElseThereIsToTell) {
    Agent remarking({.smc = smc,
                     .center = center,
                     .preferences = preferences,
                     .clock = clock,
                     .load = {},
                     .writing = AgentStatus::Writing::pretended});
    EXPECT_EQ(remarking.currentState().status, "Dry run: nothing is written to the controller.");
    Bridge(center).send(command::CheckForUpdates{});
    EXPECT_EQ(remarking.currentState().status,
              "Tervale is up to date. Dry run: nothing is written to the controller.");
    EXPECT_EQ(remarking.end(), std::nullopt);
    EXPECT_EQ(remarking.currentState().status,
              "The agent has ended. Dry run: nothing is written to the controller.");
}

} // namespace
} // namespace tervale
