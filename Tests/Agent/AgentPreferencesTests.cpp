#include "Agent/AgentFixture.h"
#include "Agent/StarterProfiles.h"
#include "JSON/JSON.h"
#include "Profiles/ProfileStore.h"
#include "Profiles/StoringFailure.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace tervale {
namespace {

TEST_F(AgentTest, RemembersEverythingButTheTimerWhenItIsStartedAgain) {
    const Profile profile = profileNamed("Mine", kind::Load{flatAt70});
    send(command::SaveProfiles{{profile}});
    send(command::Select{action::Profile{profile.id}});
    EXPECT_EQ(answersTo(command::SetLaunchAtLogin{true}), 1U);
    send(command::StartTimer{action::Fixed{1}, 900});
    start();
    BridgeState expected;
    expected.selection = action::Profile{profile.id};
    expected.launchAtLogin = true;
    expected.profiles = {profile};
    EXPECT_EQ(last(), expected);
    EXPECT_NEAR(fan(0).target, 1200 + 0.7 * 4577, 0.01);
    send(command::SetLaunchAtLogin{false});
    start();
    EXPECT_FALSE(last().launchAtLogin);
}

TEST_F(AgentTest, DoesNotOfferProfilesAgainToWhoHasDeletedThem) {
    send(command::SaveProfiles{{}});
    start();
    EXPECT_TRUE(last().profiles.empty());
}

TEST_F(AgentTest, RefusesProfilesThatWouldSilenceIt) {
    const std::vector<Profile> before = last().profiles;
    std::string name(Bridge::maximumTextSize - 1000, 'n');
    EXPECT_EQ(answersTo(command::SaveProfiles{{profileNamed(name, kind::Load{})}}), 1U);
    EXPECT_EQ(last().profiles, before);
    EXPECT_EQ(last().status, "Those profiles were not saved: they are too long.");
    name.resize(name.size() - 1000);
    EXPECT_EQ(answersTo(command::SaveProfiles{{profileNamed(name, kind::Load{})}}), 1U);
    EXPECT_EQ(last().profiles.size(), 1U);
    EXPECT_EQ(last().status, std::nullopt);
}

TEST_F(AgentTest, AnswersACommandThatIsTooLongToBeRead) {
    const std::vector<Profile> before = last().profiles;
    const std::string name(std::size_t{9} * 1024 * 1024, 'n');
    const std::size_t answers = heard.size();
    center.post(Bridge::commandName,
                encode(BridgeCommand(command::SaveProfiles{{profileNamed(name, kind::Load{})}})));
    EXPECT_EQ(heard.size(), answers + 1);
    EXPECT_EQ(last().profiles, before);
    EXPECT_EQ(last().status, "A command was not taken: it is too long.");
}

/// Preferences that fail as a disk does: nothing is read, or nothing is written.
class FailingPreferences final : public Preferences {
  public:
    std::optional<Data> data(const std::string& key) const override {
        return canRead ? kept.data(key) : std::nullopt;
    }
    bool contains(const std::string& key) const override { return kept.contains(key); }
    std::optional<std::string> setData(const std::string& key, const Data& data) override {
        ++writes;
        if (writing == Writing::fails)
            return "No space left on device";
        return writing == Writing::works ? kept.setData(key, data) : std::nullopt;
    }
    bool keepCopy(const std::string& key, const std::string& copy) override {
        return canKeep && kept.keepCopy(key, copy);
    }
    std::vector<std::string> keys(const std::string& prefix) const override {
        return kept.keys(prefix);
    }
    void remove(const std::string& key) override { kept.remove(key); }

    InMemoryPreferences kept;
    bool canRead = true;
    bool canKeep = true;
    /// Some disks say nothing.
    enum class Writing { works, fails, failsSilently } writing = Writing::works;
    int writes = 0;
};

class AgentOnAFailingDisk : public testing::Test {
  protected:
    void start() {
        simulation.reset();
        simulation = std::make_unique<Simulation>(
            SimulatedMacOptions{.scenario = Scenario::idle, .fillers = 0}, center, disk);
    }
    const BridgeState& state() { return simulation->agent()->currentState(); }
    std::vector<Profile> stored() { return ProfileStore(disk.kept).profiles(); }
    void send(const BridgeCommand& command) { Bridge(center).send(command); }

    using Writing = FailingPreferences::Writing;
    static constexpr const char* notStored =
        "Not everything could be stored: No space left on device. Another attempt follows.";
    static constexpr const char* unreadable =
        "The stored profiles cannot be read. They stay until you save others.";
    InProcessNotificationCenter center;
    FailingPreferences disk;
    std::unique_ptr<Simulation> simulation;
    const std::vector<Profile> mine{profileNamed("Mine", kind::Load{flatAt70})};
};

TEST_F(AgentOnAFailingDisk, TellsThatASaveCouldNotBeStoredAndTriesAgain) {
    start();
    disk.writing = Writing::fails;
    send(command::SaveProfiles{mine});
    EXPECT_EQ(state().profiles, mine);
    EXPECT_EQ(state().status, notStored);
    send(command::Select{action::Fixed{0.5}});
    simulation->advance(30);
    EXPECT_EQ(state().status, notStored);
    EXPECT_NE(stored(), mine);
    disk.writing = Writing::works;
    simulation->advance(CheckedPreferences::interval + 1);
    EXPECT_EQ(state().status, std::nullopt);
    EXPECT_EQ(stored(), mine);
    EXPECT_EQ(ProfileStore(disk.kept).selection(), Action(action::Fixed{0.5}));
}

TEST_F(AgentOnAFailingDisk, OffersTheStarterProfilesThoughTheyCannotBeStored) {
    disk.writing = Writing::fails;
    start();
    EXPECT_EQ(state().profiles, starterProfiles());
    EXPECT_EQ(state().status, notStored);
}

TEST_F(AgentOnAFailingDisk, ReplacesNoUnreadableProfilesThatCannotBeKept) {
    ProfileStore(disk.kept).setProfiles(mine);
    disk.canRead = false;
    disk.canKeep = false;
    start();
    send(command::SaveProfiles{{profileNamed("Other", kind::Load{flatAt70})}});
    EXPECT_EQ(state().status, "Those profiles were not saved: the ones that cannot be read could "
                              "not be kept beside them.");
    EXPECT_EQ(stored(), mine);
    EXPECT_NE(state().profiles.size(), 1U);
}

TEST_F(AgentOnAFailingDisk, ReadsBackWhatItStored) {
    start();
    disk.writing = Writing::failsSilently;
    send(command::SetLaunchAtLogin{true});
    EXPECT_EQ(state().status, "Not everything could be stored: it does not read back. Another "
                              "attempt follows.");
    disk.writing = Writing::works;
    simulation->advance(CheckedPreferences::interval + 1);
    EXPECT_EQ(state().status, std::nullopt);
}

TEST_F(AgentOnAFailingDisk, TriesAgainOnceAnInterval) {
    start();
    disk.writing = Writing::fails;
    send(command::SaveProfiles{mine});
    disk.writes = 0;
    for (int request = 0; request < 100; ++request)
        send(command::RequestState{});
    EXPECT_EQ(disk.writes, 0);
    simulation->advance(10 * CheckedPreferences::interval);
    EXPECT_EQ(disk.writes, 10);
}

TEST_F(AgentOnAFailingDisk, TellsItBesideWhateverElseThereIsToTell) {
    start();
    disk.writing = Writing::fails;
    send(command::SaveProfiles{mine});
    send(command::CheckForUpdates{});
    EXPECT_EQ(state().status, std::string("Tervale is up to date. ") + notStored);
    EXPECT_TRUE(tellsStoringFailure(state()));
}

TEST_F(AgentOnAFailingDisk, StoresTheStartersOnlyWhereNothingWasStoredInTheMeantime) {
    disk.writing = Writing::fails;
    start();
    ProfileStore(disk.kept).setProfiles(mine);
    disk.writing = Writing::works;
    simulation->advance(CheckedPreferences::interval + 1);
    EXPECT_EQ(stored(), mine);
    EXPECT_EQ(state().profiles, mine);
    EXPECT_EQ(state().status, std::nullopt);
}

TEST_F(AgentOnAFailingDisk, LeavesASelectionThatCannotBeReadAtTheStart) {
    start();
    ProfileStore(disk.kept).setSelection(action::Fixed{0.5});
    disk.canRead = false;
    start();
    send(command::StartTimer{action::Fixed{1}, 2});
    send(command::SetLaunchAtLogin{true});
    EXPECT_EQ(state().selection, Action(action::Automatic{}));
    EXPECT_EQ(ProfileStore(disk.kept).selection(), Action(action::Fixed{0.5}));
    disk.canRead = true;
    simulation->advance(CheckedPreferences::interval + 1);
    EXPECT_EQ(state().selection, Action(action::Fixed{0.5}));
    EXPECT_EQ(state().profiles, starterProfiles());
}

TEST_F(AgentOnAFailingDisk, TellsOnceThatProfilesCannotBeRead) {
    disk.kept.setData("profiles", {});
    start();
    simulation->advance(1000);
    EXPECT_EQ(state().status, unreadable) << "until somebody is there";
    send(command::Select{action::Fixed{0.5}});
    simulation->advance(1000);
    EXPECT_EQ(state().status, std::nullopt);
}

TEST_F(AgentOnAFailingDisk, KeepsTheLastThreeThatCouldNotBeRead) {
    for (const char* text : {"1", "2", "3", "4"}) {
        disk.kept.setString("profiles", text);
        start();
        simulation->advance(1);
        send(command::SaveProfiles{mine});
    }
    EXPECT_EQ(disk.kept.keys("profiles.unreadable").size(), 3U);
    EXPECT_EQ(stored(), mine);
}

TEST_F(AgentOnAFailingDisk, KeepsProfilesThatCannotBeReadAtTheStart) {
    ProfileStore(disk.kept).setProfiles(mine);
    disk.canRead = false;
    start();
    EXPECT_TRUE(state().profiles.empty());
    EXPECT_EQ(state().status, unreadable);
    EXPECT_EQ(stored(), mine);
    disk.canRead = true;
    simulation->advance(100);
    EXPECT_EQ(stored(), mine);
    EXPECT_EQ(state().profiles, mine) << "taken up as soon as they can be read";
    EXPECT_EQ(state().status, std::nullopt);
}

TEST_F(AgentOnAFailingDisk, KeepsATextThatIsNoListUntilAPersonSavesAndThenBesideIt) {
    const Preferences::Data text{std::byte{'['}};
    disk.kept.setData("profiles", text);
    start();
    EXPECT_EQ(state().status, unreadable);
    send(command::Select{action::Fixed{0.5}});
    EXPECT_EQ(disk.kept.data("profiles"), text);
    send(command::SaveProfiles{});
    const std::string beside = "profiles.unreadable-2001-01-01T000000Z";
    EXPECT_EQ(state().status, "The profiles that could not be read are kept as " + beside + ".");
    EXPECT_TRUE(stored().empty());
    EXPECT_EQ(disk.kept.data(beside), text);
    simulation->advance(Agent::noticeDuration);
    EXPECT_EQ(state().status, std::nullopt);
    start();
    EXPECT_EQ(state().status, std::nullopt) << "an empty list is a list";
}

} // namespace
} // namespace tervale
