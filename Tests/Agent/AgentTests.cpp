#include "Agent/AgentFixture.h"
#include "Agent/StarterProfiles.h"
#include "Support/BreakableCenter.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace tervale {
namespace {

constexpr std::int64_t noon = 720;

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

} // namespace
} // namespace tervale
