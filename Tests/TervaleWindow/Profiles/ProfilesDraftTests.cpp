#include "Profiles/Validation.h"
#include "TervaleWindow/Profiles/ProfilesDraft.h"
#include "TervaleWindow/Profiles/SampleProfiles.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

ProfilesDraft loadedDraft() {
    ProfilesDraft draft;
    draft.follow(true, oneTwoThree);
    return draft;
}

std::vector<std::string> names(const ProfilesDraft& draft) {
    std::vector<std::string> result;
    for (const Profile& profile : draft.profiles)
        result.push_back(profile.name);
    return result;
}

void addTemperature(ProfilesDraft& draft) {
    draft.add("Temperature",
              kind::Temperature{{SensorGroup::cpu, false}, ProfileDefaults::temperatureCurve()});
}

TEST(ProfileDefaultsOfNewProfiles, AreValid) {
    ProfilesDraft draft;
    addTemperature(draft);
    draft.add("Load", kind::Load{ProfileDefaults::loadCurve()});
    draft.add("Schedule", kind::Schedule{ProfileDefaults::schedule()});
    for (const Profile& profile : draft.profiles)
        EXPECT_TRUE(problems(profile, draft.profiles).empty()) << profile.name;
}

TEST(ProfileDefaultsOfNewProfiles, AreTheUsualOnes) {
    EXPECT_EQ(ProfileDefaults::temperatureCurve(),
              (Curve{{{40, 0.1}, {60, 0.35}, {80, 0.75}, {95, 1.0}}}));
    EXPECT_EQ(ProfileDefaults::loadCurve(), (Curve{{{10, 0.0}, {50, 0.4}, {90, 1.0}}}));
    EXPECT_EQ(ProfileDefaults::schedule(), (std::vector<Window>{{1380, 420, action::Automatic{}}}));
}

TEST(DraftBeforeItIsLoaded, CanNeitherBeSavedNorReverted) {
    ProfilesDraft draft;
    draft.follow(false, oneTwoThree);
    EXPECT_FALSE(draft.loaded);
    EXPECT_FALSE(draft.canRevert());
    draft.revert();
    EXPECT_TRUE(draft.profiles.empty());
    draft.follow(true, oneTwoThree);
    EXPECT_EQ(draft.profiles, oneTwoThree);
}

TEST(DraftAdd, NumbersNamesThatAreTaken) {
    ProfilesDraft draft;
    addTemperature(draft);
    addTemperature(draft);
    addTemperature(draft);
    EXPECT_EQ(names(draft),
              (std::vector<std::string>{"Temperature", "Temperature 2", "Temperature 3"}));
}

TEST(DraftAdd, TakesANumberThatBecameFree) {
    ProfilesDraft draft;
    for (int count = 0; count < 3; ++count)
        addTemperature(draft);
    draft.selection = draft.profiles[1].id;
    draft.remove();
    addTemperature(draft);
    EXPECT_EQ(names(draft),
              (std::vector<std::string>{"Temperature", "Temperature 3", "Temperature 2"}));
}

TEST(DraftAdd, SelectsTheNewProfileAtTheEnd) {
    ProfilesDraft draft = loadedDraft();
    addTemperature(draft);
    EXPECT_EQ(draft.profiles.size(), 4U);
    EXPECT_EQ(draft.selection, draft.profiles.back().id);
    EXPECT_NE(draft.profiles.back().id, UUID());
}

TEST(DraftDuplicate, AppendsAndSelectsACopy) {
    ProfilesDraft draft = loadedDraft();
    draft.selection = idOf(2);
    draft.duplicate();
    ASSERT_EQ(draft.profiles.size(), 4U);
    EXPECT_EQ(draft.profiles[3].name, "Two copy");
    EXPECT_EQ(draft.profiles[3].kind, oneTwoThree[1].kind);
    EXPECT_NE(draft.profiles[3].id, idOf(2));
    EXPECT_EQ(draft.selection, draft.profiles[3].id);
}

TEST(DraftDuplicate, NeverNumbersItsCopies) {
    ProfilesDraft draft = loadedDraft();
    draft.duplicate();
    draft.selection = idOf(1);
    draft.duplicate();
    EXPECT_EQ(names(draft),
              (std::vector<std::string>{"One", "Two", "Three", "One copy", "One copy"}));
}

TEST(DraftDuplicate, DoesNothingWithoutAProfileThatIsThere) {
    ProfilesDraft draft = loadedDraft();
    draft.selection = idOf(9);
    draft.duplicate();
    draft.remove();
    EXPECT_EQ(draft.profiles, oneTwoThree);
    EXPECT_EQ(draft.selection, idOf(9));
    draft.selection.reset();
    draft.duplicate();
    draft.remove();
    EXPECT_EQ(draft.profiles, oneTwoThree);
}

TEST(DraftRemove, SelectsTheProfileThatTakesThePlace) {
    ProfilesDraft draft = loadedDraft();
    draft.selection = idOf(2);
    draft.remove();
    EXPECT_EQ(names(draft), (std::vector<std::string>{"One", "Three"}));
    EXPECT_EQ(draft.selection, idOf(3));
}

TEST(DraftRemove, SelectsTheNewLastProfileAfterTheLast) {
    ProfilesDraft draft = loadedDraft();
    draft.selection = idOf(3);
    draft.remove();
    EXPECT_EQ(draft.selection, idOf(2));
}

TEST(DraftRemove, SelectsNothingOnceTheListIsEmpty) {
    ProfilesDraft draft;
    draft.follow(true, {oneTwoThree[0]});
    draft.remove();
    EXPECT_EQ(draft.selection, std::nullopt);
    EXPECT_TRUE(draft.canRevert());
}

TEST(DraftFollow, WaitsForTheAgent) {
    ProfilesDraft draft;
    draft.follow(false, oneTwoThree);
    EXPECT_TRUE(draft.profiles.empty());
    EXPECT_FALSE(draft.loaded);
    EXPECT_EQ(draft.selection, std::nullopt);
}

TEST(DraftFollow, LoadsAndSelectsTheFirstProfile) {
    const ProfilesDraft draft = loadedDraft();
    EXPECT_TRUE(draft.loaded);
    EXPECT_EQ(draft.profiles, oneTwoThree);
    EXPECT_EQ(draft.selection, idOf(1));
}

TEST(DraftFollow, SelectsNothingInAnEmptyList) {
    ProfilesDraft draft;
    draft.follow(true, {});
    EXPECT_TRUE(draft.loaded);
    EXPECT_EQ(draft.selection, std::nullopt);
}

TEST(DraftFollow, NeverTouchesUnsavedEdits) {
    ProfilesDraft draft = loadedDraft();
    addTemperature(draft);
    const ProfilesDraft edited = draft;
    draft.follow(true, {loadProfile(7, "Seven")});
    EXPECT_EQ(draft.profiles, edited.profiles);
    EXPECT_EQ(draft.selection, edited.selection);
    EXPECT_TRUE(draft.canRevert());
}

TEST(DraftFollow, TakesWhatTheAgentSaysWhileNothingIsEdited) {
    ProfilesDraft draft = loadedDraft();
    draft.follow(true, {loadProfile(7, "Seven")});
    EXPECT_EQ(names(draft), std::vector<std::string>{"Seven"});
    EXPECT_EQ(draft.selection, idOf(1));
    EXPECT_EQ(draft.selected(), nullptr);
}

TEST(DraftFollow, IsCleanAgainOnceTheAgentHasSaved) {
    ProfilesDraft draft = loadedDraft();
    addTemperature(draft);
    const std::vector<Profile> edited = draft.profiles;
    draft.follow(true, edited);
    EXPECT_FALSE(draft.canRevert());
    draft.follow(true, oneTwoThree);
    EXPECT_EQ(draft.profiles, oneTwoThree);
}

TEST(DraftFollow, IsCleanAgainAfterReverting) {
    ProfilesDraft draft = loadedDraft();
    addTemperature(draft);
    draft.follow(true, {loadProfile(7, "Seven")});
    draft.revert();
    EXPECT_EQ(names(draft), std::vector<std::string>{"Seven"});
    draft.follow(true, oneTwoThree);
    EXPECT_EQ(draft.profiles, oneTwoThree);
}

TEST(DraftFollow, KeepsTheSelectionThatIsSet) {
    ProfilesDraft draft;
    draft.selection = idOf(9);
    draft.follow(true, oneTwoThree);
    EXPECT_EQ(draft.selection, idOf(9));
    EXPECT_EQ(draft.selected(), nullptr);
}

TEST(DraftFollow, SelectsTheFirstProfileOnceThereIsOneAgain) {
    ProfilesDraft draft;
    draft.follow(true, {});
    EXPECT_EQ(draft.selection, std::nullopt);
    draft.follow(true, oneTwoThree);
    EXPECT_EQ(draft.selection, idOf(1));
}

TEST(DraftRevert, LeavesTheSelection) {
    ProfilesDraft draft = loadedDraft();
    addTemperature(draft);
    const auto added = draft.selection;
    draft.revert();
    EXPECT_EQ(draft.profiles, oneTwoThree);
    EXPECT_EQ(draft.selection, added);
    EXPECT_EQ(draft.selected(), nullptr);
}

TEST(DraftPerform, EditsTheFirstProfileWithTheSelectedId) {
    ProfilesDraft draft;
    draft.follow(true, {oneTwoThree[0], oneTwoThree[0]});
    EXPECT_EQ(draft.perform(profileEdit::Rename{"Uno"}), 0U);
    EXPECT_EQ(names(draft), (std::vector<std::string>{"Uno", "One"}));
    EXPECT_TRUE(draft.canRevert());
}

TEST(DraftPerform, ChangesNothingWithoutAProfileOrADifference) {
    ProfilesDraft draft = loadedDraft();
    EXPECT_EQ(draft.perform(profileEdit::Rename{"One"}), std::nullopt);
    draft.selection = idOf(9);
    EXPECT_EQ(draft.perform(profileEdit::Rename{"Nine"}), std::nullopt);
    EXPECT_EQ(draft.profiles, oneTwoThree);
}

} // namespace
} // namespace tervale
