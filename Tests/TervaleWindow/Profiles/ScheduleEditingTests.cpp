#include "TervaleWindow/Profiles/SampleProfiles.h"
#include "TervaleWindow/Profiles/ScheduleEditing.h"

#include <gtest/gtest.h>

#include <limits>
#include <unordered_set>

namespace tervale {
namespace {

using Choice = ScheduleEditing::Choice;
using Edge = ScheduleEditing::Edge;
using ClockTime = ScheduleEditing::ClockTime;

ScheduleEditing withWindow(std::int64_t start, std::int64_t end,
                           const Action& action = action::Automatic{}) {
    return {{{start, end, action}}};
}

TEST(ScheduleAdd, StartsAnEmptyScheduleAtNine) {
    ScheduleEditing editing;
    editing.add();
    EXPECT_EQ(editing, withWindow(540, 600));
    editing.add();
    ASSERT_EQ(editing.windows.size(), 2U);
    EXPECT_EQ(editing.windows[1], (Window{600, 660, action::Automatic{}}));
}

TEST(ScheduleAdd, ContinuesAfterTheLastWindowOfTheList) {
    ScheduleEditing editing{{{1380, 420, action::Automatic{}}, {60, 0, action::Fixed{0.2}}}};
    editing.add();
    EXPECT_EQ(editing.windows.back(), (Window{0, 60, action::Automatic{}}));
}

TEST(ScheduleAdd, WrapsIntoTheDay) {
    ScheduleEditing editing = withWindow(600, 1410);
    editing.add();
    EXPECT_EQ(editing.windows.back(), (Window{1410, 30, action::Automatic{}}));
    editing = withWindow(600, 1380);
    editing.add();
    EXPECT_EQ(editing.windows.back(), (Window{1380, 0, action::Automatic{}}));
}

TEST(ScheduleAdd, CopesWithAnEndOutsideTheDay) {
    ScheduleEditing editing = withWindow(0, std::numeric_limits<std::int64_t>::max());
    editing.add();
    EXPECT_GE(editing.windows.back().end, 0);
    EXPECT_LT(editing.windows.back().end, 1440);
}

TEST(ScheduleRemove, TakesAnyWindowDownToNone) {
    ScheduleEditing editing;
    editing.add();
    editing.add();
    editing.add();
    editing.remove(1);
    EXPECT_EQ(editing.windows[1].start, 660);
    editing.remove(0);
    editing.remove(0);
    EXPECT_TRUE(editing.windows.empty());
}

TEST(ScheduleChoice, StandsForTheWindowsAction) {
    EXPECT_EQ(withWindow(0, 1).choice(0), Choice(choice::Automatic{}));
    EXPECT_EQ(withWindow(0, 1, action::Fixed{0.3}).choice(0), Choice(choice::Fixed{}));
    EXPECT_EQ(withWindow(0, 1, action::Profile{idOf(7)}).choice(0),
              Choice(choice::Profile{idOf(7)}));
}

TEST(ScheduleChoice, SetsTheWindowsAction) {
    ScheduleEditing editing = withWindow(0, 1);
    editing.setChoice(0, choice::Profile{idOf(7)});
    EXPECT_EQ(editing.windows[0].action, Action(action::Profile{idOf(7)}));
    editing.setChoice(0, choice::Fixed{});
    EXPECT_EQ(editing.windows[0].action, Action(action::Fixed{0.5}));
    editing.setChoice(0, choice::Automatic{});
    EXPECT_EQ(editing.windows[0].action, Action(action::Automatic{}));
}

TEST(ScheduleChoice, ForgetsTheSpeed) {
    ScheduleEditing editing = withWindow(0, 1, action::Fixed{0.8});
    editing.setChoice(0, choice::Automatic{});
    editing.setChoice(0, choice::Fixed{});
    EXPECT_EQ(editing.windows[0].action, Action(action::Fixed{0.5}));
}

TEST(ScheduleChoice, KeepsTheSpeedOfWhatIsChosenAlready) {
    ScheduleEditing editing = withWindow(0, 1, action::Fixed{0.8});
    editing.setChoice(0, choice::Fixed{});
    EXPECT_EQ(editing.windows[0].action, Action(action::Fixed{0.8}));
}

TEST(ScheduleChoice, CanTagThePickersEntries) {
    const std::unordered_set<Choice> tags{choice::Profile{idOf(1)}, choice::Profile{idOf(2)},
                                          choice::Automatic{}, choice::Fixed{}, choice::Fixed{}};
    EXPECT_EQ(tags.size(), 4U);
    EXPECT_TRUE(tags.contains(choice::Profile{idOf(2)}));
    EXPECT_FALSE(tags.contains(choice::Profile{idOf(3)}));
}

TEST(ScheduleTime, ShowsMinutesAsClockTime) {
    const ScheduleEditing editing = withWindow(425, 1439);
    EXPECT_EQ(editing.time(0, Edge::start), (ClockTime{7, 5}));
    EXPECT_EQ(editing.time(0, Edge::end), (ClockTime{23, 59}));
}

TEST(ScheduleTime, StoresClockTimeAsMinutes) {
    ScheduleEditing editing = withWindow(0, 1);
    editing.setTime(0, Edge::start, {7, 5});
    editing.setTime(0, Edge::end, {0, 0});
    EXPECT_EQ(editing.windows[0].start, 425);
    EXPECT_EQ(editing.windows[0].end, 0);
}

TEST(ScheduleTime, BringsAStoredTimeIntoTheDay) {
    const ScheduleEditing editing = withWindow(1440, -5);
    EXPECT_EQ(editing.time(0, Edge::start), (ClockTime{0, 0}));
    EXPECT_EQ(editing.time(0, Edge::end), (ClockTime{23, 55}));
}

TEST(ScheduleSpeed, KeepsWholePercent) {
    ScheduleEditing editing = withWindow(0, 1, action::Fixed{0.5});
    editing.setSpeed(0, 0.2944);
    EXPECT_EQ(editing.windows[0].action, Action(action::Fixed{0.29}));
    editing.setSpeed(0, 0.295);
    EXPECT_EQ(editing.windows[0].action, Action(action::Fixed{0.3}));
}

TEST(ScheduleEditingDeathTest, KnowsOnlyItsOwnWindows) {
    ScheduleEditing editing;
    EXPECT_DEATH(editing.remove(0), "no window of that index");
}

} // namespace
} // namespace tervale
