#include "tervale-agent/StateLog.h"

#include <gtest/gtest.h>

using namespace tervale;

using Lines = std::vector<std::string>;

TEST(StateLog, TellsEachChangeOnceAndNothingAtRest) {
    StateLog log;
    BridgeState state;
    EXPECT_EQ(log.changes(state), Lines{"Selection: automatic"});
    EXPECT_EQ(log.changes(state), Lines{});
    state.selection = action::Fixed{0.405};
    state.status = "Too hot.";
    EXPECT_EQ(log.changes(state), (Lines{"Selection: 41%", "Status: Too hot."}));
    state.status.reset();
    state.timerAction = action::Automatic{};
    state.timerEnds = Date{1};
    state.launchAtLogin = true;
    state.profiles.resize(2);
    EXPECT_EQ(log.changes(state),
              (Lines{"Timer: automatic", "Profiles: 2", "Launch at login: on", "Status: none"}));
    state.timerEnds = Date{2};
    EXPECT_EQ(log.changes(state), Lines{"Timer: automatic"});
    EXPECT_EQ(log.changes(state), Lines{});
}
