#include "TervaleWindow/Profiles/DraftStep.h"
#include "TervaleWindow/Profiles/SampleProfiles.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

using Part = EditTarget::Part;

ProfilesDraft draftOf(std::vector<Profile> profiles, std::optional<UUID> selection = {}) {
    return {std::move(profiles), selection, true, {}};
}

TEST(DraftStepBetween, HoldsOnlyTheProfilesThatDiffer) {
    const DraftStep step =
        stepBetween(draftOf(oneTwoThree, idOf(1)),
                    draftOf({oneTwoThree[0], loadProfile(2, "Deux"), oneTwoThree[2]}, idOf(2)));
    EXPECT_EQ(step, (DraftStep{1, {oneTwoThree[1]}, {loadProfile(2, "Deux")}, idOf(1), idOf(2)}));
    EXPECT_TRUE(step.isEdit());
}

TEST(DraftStepBetween, IsEmptyForEqualLists) {
    EXPECT_TRUE(stepBetween(draftOf(oneTwoThree), draftOf(oneTwoThree)).changesNothing());
}

TEST(DraftStepBetween, LeadsThereAndBack) {
    const std::vector<std::vector<Profile>> lists{{},
                                                  {oneTwoThree[1]},
                                                  oneTwoThree,
                                                  threeProfiles,
                                                  {oneTwoThree[0], oneTwoThree[2]},
                                                  {oneTwoThree[0], oneTwoThree[0]},
                                                  {oneTwoThree[0], oneTwoThree[0], oneTwoThree[0]}};
    for (const auto& from : lists) {
        for (const auto& to : lists) {
            const ProfilesDraft before = draftOf(from, idOf(1));
            const ProfilesDraft after = draftOf(to, std::nullopt);
            const DraftStep step = stepBetween(before, after);
            ProfilesDraft draft = before;
            step.redo(draft);
            EXPECT_EQ(draft, after);
            step.undo(draft);
            EXPECT_EQ(draft, before);
        }
    }
}

TEST(DraftStep, IsNoEditWhereAnotherProfileTakesThePlace) {
    const auto between = [](const Profile& from, const Profile& to) {
        return stepBetween(draftOf({from}), draftOf({to}));
    };
    EXPECT_FALSE(between(loadProfile(1, "One"), loadProfile(2, "One")).isEdit());
    EXPECT_FALSE(between(loadProfile(1, "One"), temperatureProfile(1, "One")).isEdit());
}

TEST(DraftStep, BecomesOneWithTheNext) {
    DraftStep step{1, {loadProfile(2, "Two")}, {loadProfile(2, "Tw")}, idOf(2), idOf(2)};
    step.append({1, {loadProfile(2, "Tw")}, {loadProfile(2, "T")}, idOf(2), idOf(2)});
    EXPECT_EQ(step,
              (DraftStep{1, {loadProfile(2, "Two")}, {loadProfile(2, "T")}, idOf(2), idOf(2)}));
    step.append({1, {loadProfile(2, "T")}, {loadProfile(2, "Two")}, idOf(2), idOf(2)});
    EXPECT_TRUE(step.changesNothing());
}

TEST(DraftStepDeath, StopsOnADraftOfAnotherLength) {
    const DraftStep step{2, {oneTwoThree[2]}, {}, {}, {}};
    ProfilesDraft draft = draftOf({oneTwoThree[0]});
    EXPECT_DEATH(step.redo(draft), "another draft");
}

TEST(EditTargets, AreTheSameForWhatGoesOn) {
    Profile profile = temperatureProfile(1, "Warm");
    const auto target = [&profile](const ProfileEdit& edit) {
        perform(edit, profile);
        return targetOf(edit, profile);
    };
    EXPECT_EQ(target(profileEdit::Rename{"W"}), (EditTarget{Part::name, 0}));
    // Between the points at 60 and 80.
    EXPECT_EQ(target(CurveEdit(curveEdit::Add{{70, 0.5}})), (EditTarget{Part::point, 2}));
    EXPECT_EQ(target(CurveEdit(curveEdit::Move{2, {71, 0.5}})), (EditTarget{Part::point, 2}));
    EXPECT_EQ(target(CurveEdit(curveEdit::Remove{2})), std::nullopt);
    EXPECT_EQ(target(profileEdit::FollowInput{}), std::nullopt);
}

TEST(EditTargets, AreEndedByTheRemovalOfTheirPointAlone) {
    EXPECT_EQ(endedBy(CurveEdit(curveEdit::Remove{2})), (EditTarget{Part::point, 2}));
    EXPECT_EQ(endedBy(CurveEdit(curveEdit::Move{2, {71, 0.5}})), std::nullopt);
    EXPECT_EQ(endedBy(CurveEdit(curveEdit::Add{{70, 0.5}})), std::nullopt);
    EXPECT_EQ(endedBy(profileEdit::Rename{"W"}), std::nullopt);
    EXPECT_EQ(endedBy(WindowEdit(windowEdit::Remove{2})), std::nullopt);
}

TEST(EditTargets, TellTheEndsOfATimeWindowApart) {
    using Edge = ScheduleEditing::Edge;
    Profile profile = scheduleProfile(1, "Night", action::Automatic{});
    const auto target = [&profile](const WindowEdit& edit) {
        perform(ProfileEdit(edit), profile);
        return targetOf(edit, profile);
    };
    EXPECT_EQ(target(windowEdit::Add{}), std::nullopt);
    EXPECT_EQ(target(windowEdit::SetTime{1, Edge::start, {1, 0}}), (EditTarget{Part::start, 1}));
    EXPECT_EQ(target(windowEdit::SetTime{1, Edge::end, {1, 0}}), (EditTarget{Part::end, 1}));
    EXPECT_EQ(target(windowEdit::SetChoice{1, choice::Fixed{}}), std::nullopt);
    EXPECT_EQ(target(windowEdit::SetSpeed{1, 0.4}), (EditTarget{Part::speed, 1}));
    EXPECT_EQ(target(windowEdit::Remove{1}), std::nullopt);
}

} // namespace
} // namespace tervale
