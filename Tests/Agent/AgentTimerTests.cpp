#include "Agent/AgentFixture.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

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

} // namespace
} // namespace tervale
