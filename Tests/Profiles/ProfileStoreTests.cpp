#include "Profiles/InMemoryPreferences.h"
#include "Profiles/ProfileStore.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tervale {

namespace {

Preferences::Data bytes(std::string_view text) {
    const auto* first = reinterpret_cast<const std::byte*>(text.data());
    return {first, first + text.size()};
}

Profile load(const char* name, double speed) {
    return {UUID::random(), name, kind::Load{{{{0, 0}, {100, speed}}}}};
}

class ProfileStoreTest : public testing::Test {
  protected:
    InMemoryPreferences defaults;
    ProfileStore store{defaults};
};

} // namespace

TEST_F(ProfileStoreTest, IsEmptyAndAutomaticWhenFresh) {
    EXPECT_TRUE(store.profiles().empty());
    EXPECT_EQ(store.selection(), Action(action::Automatic{}));
}

TEST_F(ProfileStoreTest, KeepsProfilesAndSelection) {
    const std::vector<Profile> profiles{load("b", 1), load(" a ", 0.5)};
    store.setProfiles(profiles);
    store.setSelection(action::Profile{profiles[1].id});
    EXPECT_EQ(ProfileStore(defaults).profiles(), profiles);
    EXPECT_EQ(ProfileStore(defaults).selection(), Action(action::Profile{profiles[1].id}));
}

TEST_F(ProfileStoreTest, WritesTheBytesOfTheJSONText) {
    store.setProfiles({});
    store.setSelection(action::Fixed{0.25});
    EXPECT_EQ(defaults.data("profiles"), bytes("[]"));
    EXPECT_EQ(defaults.data("selection"), bytes(R"({"fixed":{"_0":0.25}})"));
    EXPECT_TRUE(store.profiles().empty());
}

TEST_F(ProfileStoreTest, ReadsTheSelectionsText) {
    defaults.setData("selection", bytes(R"({"fixed":{"_0":0.25}})"));
    EXPECT_EQ(store.selection(), Action(action::Fixed{0.25}));
    defaults.setData("selection", bytes(R"({"manual":{}})"));
    EXPECT_EQ(store.selection(), Action(action::Automatic{}));
    defaults.setData("selection", {});
    EXPECT_EQ(store.selection(), Action(action::Automatic{}));
}

TEST_F(ProfileStoreTest, ReadsAValueOfAnotherTypeAsTheDefault) {
    defaults.setString("profiles", "[]");
    defaults.setString("selection", R"({"fixed":{"_0":0.25}})");
    EXPECT_TRUE(store.profiles().empty());
    EXPECT_EQ(store.selection(), Action(action::Automatic{}));
    store.setSelection(action::Fixed{1});
    EXPECT_EQ(store.selection(), Action(action::Fixed{1}));
}

TEST_F(ProfileStoreTest, KeepsTheOldListRatherThanWriteWhatIsNotReadBack) {
    const std::vector<Profile> old{load("old", 1)};
    store.setProfiles(old);
    Profile endless = load("", 1);
    endless.name.assign(std::size_t{17} * 1024 * 1024, 'n');
    store.setProfiles({endless});
    EXPECT_EQ(store.profiles(), old);
}

TEST_F(ProfileStoreTest, ReadsAListWithOneBadProfileAsEmptyAndWritesOverIt) {
    store.setProfiles({load("a", 1)});
    Preferences::Data data = *defaults.data("profiles");
    data.pop_back();
    const Preferences::Data tail =
        bytes(R"(,{"id":"7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95","name":"n","kind":{"temperature":)"
              R"({"_0":{"group":"neural","average":true},"_1":{"points":[]}}}}])");
    data.insert(data.end(), tail.begin(), tail.end());
    defaults.setData("profiles", data);
    EXPECT_TRUE(store.profiles().empty());
    store.setProfiles({load("b", 1)});
    EXPECT_EQ(store.profiles().size(), 1U);
}

TEST_F(ProfileStoreTest, KeepsTheOldValueWhenTheNewOneCannotBeEncoded) {
    const std::vector<Profile> profiles{load("a", 1)};
    store.setProfiles(profiles);
    store.setProfiles({load("b", std::nan(""))});
    EXPECT_EQ(store.profiles(), profiles);
    store.setSelection(action::Fixed{0.5});
    store.setSelection(action::Fixed{std::numeric_limits<double>::infinity()});
    EXPECT_EQ(store.selection(), Action(action::Fixed{0.5}));
}

TEST(InMemoryPreferences, HoldDataByKey) {
    InMemoryPreferences preferences;
    EXPECT_FALSE(preferences.data("a"));
    preferences.setData("a", bytes("1"));
    preferences.setData("b", {});
    EXPECT_EQ(preferences.data("a"), bytes("1"));
    EXPECT_EQ(preferences.data("b"), Preferences::Data());
    preferences.setString("a", "text");
    EXPECT_FALSE(preferences.data("a"));
}

} // namespace tervale
