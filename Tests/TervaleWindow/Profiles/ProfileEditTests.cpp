#include "TervaleWindow/Profiles/ProfileDefaults.h"
#include "TervaleWindow/Profiles/ProfileEdit.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

Profile temperature() {
    return {UUID{{1}}, "Warm",
            kind::Temperature{{SensorGroup::cpu, true}, ProfileDefaults::temperatureCurve()}};
}
Profile load() {
    return {UUID{{2}}, "Busy", kind::Load{ProfileDefaults::loadCurve()}};
}
Profile schedule() {
    return {UUID{{3}}, "Night", kind::Schedule{ProfileDefaults::schedule()}};
}

TEST(ProfileEdits, ChangeWhatTheyNameAndNothingElse) {
    Profile profile = temperature();
    EXPECT_TRUE(perform(profileEdit::Rename{"Hot"}, profile));
    EXPECT_TRUE(perform(profileEdit::FollowInput{{SensorGroup::ssd, false}}, profile));
    EXPECT_TRUE(perform(CurveEdit(curveEdit::Move{1, {61, 0.4}}), profile));
    Curve expected = ProfileDefaults::temperatureCurve();
    expected.points[1] = {61, 0.4};
    EXPECT_EQ(profile, (Profile{temperature().id, "Hot",
                                kind::Temperature{{SensorGroup::ssd, false}, expected}}));
}

TEST(ProfileEdits, ReachTheCurveOfEitherKind) {
    Profile profile = load();
    EXPECT_TRUE(perform(CurveEdit(curveEdit::Remove{0}), profile));
    EXPECT_TRUE(perform(CurveEdit(curveEdit::Add{{70, 0.5}}), profile));
    ASSERT_NE(curveOf(profile), nullptr);
    EXPECT_EQ(curveOf(profile)->points, (std::vector<CurvePoint>{{50, 0.4}, {70, 0.5}, {90, 1.0}}));
    EXPECT_EQ(curveOf(schedule()), nullptr);
}

TEST(ProfileEdits, ReachTheWindowsOfASchedule) {
    Profile profile = schedule();
    EXPECT_TRUE(perform(WindowEdit(windowEdit::Add{}), profile));
    EXPECT_TRUE(
        perform(WindowEdit(windowEdit::SetTime{1, ScheduleEditing::Edge::end, {9, 30}}), profile));
    EXPECT_TRUE(perform(WindowEdit(windowEdit::SetSpeed{1, 0.294}), profile));
    EXPECT_TRUE(perform(WindowEdit(windowEdit::Remove{0}), profile));
    EXPECT_EQ(profile.kind, ProfileKind(kind::Schedule{{{420, 570, action::Fixed{0.29}}}}));
    EXPECT_TRUE(perform(WindowEdit(windowEdit::SetChoice{0, choice::Automatic{}}), profile));
    EXPECT_EQ(profile.kind, ProfileKind(kind::Schedule{{{420, 570, action::Automatic{}}}}));
}

TEST(ProfileEdits, TellWhatMakesNoDifference) {
    Profile profile = temperature();
    EXPECT_FALSE(perform(profileEdit::Rename{"Warm"}, profile));
    EXPECT_FALSE(perform(profileEdit::FollowInput{{SensorGroup::cpu, true}}, profile));
    EXPECT_FALSE(perform(CurveEdit(curveEdit::Move{0, {40, 0.1}}), profile));
    EXPECT_EQ(profile, temperature());
    Profile night = schedule();
    EXPECT_FALSE(perform(WindowEdit(windowEdit::SetChoice{0, choice::Automatic{}}), night));
    EXPECT_FALSE(
        perform(WindowEdit(windowEdit::SetTime{0, ScheduleEditing::Edge::start, {23, 0}}), night));
    EXPECT_EQ(night, schedule());
}

TEST(ProfileEditsDeathTest, AreStoppedOnAProfileOfAnotherKind) {
    Profile profile = schedule();
    EXPECT_DEATH(perform(CurveEdit(curveEdit::Remove{0}), profile), "no place for the edit");
    Profile busy = load();
    EXPECT_DEATH(perform(WindowEdit(windowEdit::Add{}), busy), "no place for the edit");
    EXPECT_DEATH(perform(CurveEdit(curveEdit::Remove{9}), busy), "no point of that index");
}

} // namespace
} // namespace tervale
