#include "Profiles/Validation.h"
#include "TervaleWindow/Profiles/DraftOwner.h"
#include "TervaleWindow/Profiles/SampleProfiles.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

/// A draft, and how often it told of what.
class DraftOwnerTest : public testing::Test {
  protected:
    DraftOwnerTest() {
        draft.follow(true, oneTwoThree);
        QObject::connect(&draft, &DraftOwner::listChanged, [this] { told += "list "; });
        QObject::connect(&draft, &DraftOwner::selectionChanged, [this] { told += "selection "; });
        QObject::connect(&draft, &DraftOwner::edited,
                         [this](const ProfileEdit&, std::size_t index) {
                             told += "edited " + std::to_string(index) + " ";
                         });
        QObject::connect(&draft, &DraftOwner::problemsChanged, [this](std::size_t index) {
            told += "problems " + std::to_string(index) + " ";
        });
        QObject::connect(&draft, &DraftOwner::changed, [this] { told += "changed "; });
        validations = 0;
    }
    std::string takeTold() { return std::exchange(told, {}); }

    int validations = 0;
    DraftOwner draft{[this](const Profile& profile, std::span<const Profile> all) {
        ++validations;
        return problems(profile, all);
    }};
    std::string told;
};

TEST_F(DraftOwnerTest, TellsOfAnEditOnceAndValidatesThatProfileAlone) {
    draft.select(idOf(2));
    EXPECT_EQ(takeTold(), "selection changed ");
    draft.perform(CurveEdit(curveEdit::Move{1, {55, 0.5}}));
    EXPECT_EQ(takeTold(), "edited 1 changed ");
    EXPECT_EQ(validations, 1);
}

TEST_F(DraftOwnerTest, TellsWhatIsWrongOnlyWhenThatChanges) {
    draft.perform(profileEdit::Rename{""});
    EXPECT_EQ(takeTold(), "edited 0 problems 0 changed ");
    EXPECT_TRUE(draft.invalid());
    EXPECT_EQ(draft.problemsOfSelected(), DraftOwner::Problems{"Give the profile a name."});
    draft.perform(profileEdit::Rename{" "});
    EXPECT_EQ(takeTold(), "edited 0 changed ");
    draft.perform(profileEdit::Rename{"Uno"});
    EXPECT_EQ(takeTold(), "edited 0 problems 0 changed ");
    EXPECT_FALSE(draft.invalid());
    EXPECT_EQ(validations, 3);
}

TEST_F(DraftOwnerTest, TellsOfNothingThatMakesNoDifference) {
    draft.perform(profileEdit::Rename{"One"});
    draft.select(idOf(1));
    draft.follow(true, oneTwoThree);
    draft.revert();
    EXPECT_EQ(takeTold(), "");
    EXPECT_EQ(validations, 0);
}

TEST_F(DraftOwnerTest, TellsOfTheWholeListWhereItIsAnother) {
    draft.add("Load", kind::Load{ProfileDefaults::loadCurve()});
    EXPECT_EQ(takeTold(), "list changed ");
    draft.duplicate();
    draft.remove();
    draft.revert();
    EXPECT_EQ(takeTold(), "list changed list changed list changed ");
    draft.follow(true, {oneTwoThree[0]});
    EXPECT_EQ(takeTold(), "list changed ");
}

TEST_F(DraftOwnerTest, WaitsWithSavingForAChangeAndValidProfiles) {
    EXPECT_FALSE(draft.canSave());
    EXPECT_FALSE(draft.canRevert());
    draft.perform(profileEdit::Rename{"Uno"});
    EXPECT_TRUE(draft.canSave());
    EXPECT_TRUE(draft.canRevert());
    draft.perform(profileEdit::Rename{"  "});
    EXPECT_FALSE(draft.canSave());
    EXPECT_TRUE(draft.canRevert());
    draft.perform(profileEdit::Rename{"Uno"});
    draft.follow(true, draft.profiles());
    EXPECT_FALSE(draft.canSave());
}

TEST_F(DraftOwnerTest, RefusesToSaveWhileAScheduleRunsARemovedProfile) {
    draft.add("Schedule", kind::Schedule{{{0, 60, action::Profile{idOf(2)}}}});
    EXPECT_TRUE(draft.canSave());
    draft.select(idOf(2));
    draft.remove();
    EXPECT_FALSE(draft.canSave());
    EXPECT_EQ(draft.problemsAt(2),
              DraftOwner::Problems{"A window runs a profile that no longer exists."});
}

TEST_F(DraftOwnerTest, CannotBeSavedBeforeItIsLoaded) {
    DraftOwner empty(problems);
    empty.follow(false, oneTwoThree);
    EXPECT_FALSE(empty.canSave());
    EXPECT_TRUE(empty.profiles().empty());
    EXPECT_TRUE(empty.problemsOfSelected().empty());
}

} // namespace
} // namespace tervale
