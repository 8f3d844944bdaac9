#include "Agent/Agent.h"
#include "Agent/AgentFixture.h"
#include "Agent/StarterProfiles.h"
#include "Profiles/ProfileStore.h"
#include "Simulation/SimulatedClock.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tervale {
namespace {

/// Preferences that count what is written.
class CountingPreferences final : public Preferences {
  public:
    std::optional<Data> data(const std::string& key) const override { return kept.data(key); }
    bool contains(const std::string& key) const override { return kept.contains(key); }
    std::optional<std::string> setData(const std::string& key, const Data& data) override {
        ++writes;
        if (atWrite)
            atWrite();
        return fails ? std::optional<std::string>("full") : kept.setData(key, data);
    }
    bool keepCopy(const std::string& key, const std::string& copy) override {
        if (atWrite)
            atWrite();
        return kept.keepCopy(key, copy);
    }
    std::vector<std::string> keys(const std::string& prefix) const override {
        return kept.keys(prefix);
    }
    void remove(const std::string& key) override { kept.remove(key); }

    InMemoryPreferences kept;
    int writes = 0;
    /// What a test looks at while the disk takes its time.
    std::function<void()> atWrite;
    bool fails = false;
};

/// What an agent works with whose event loop goes on when a test says so.
class AgentsFirstTurn : public testing::Test {
  protected:
    Agent::Seams seams() {
        return {.smc = smc,
                .center = center,
                .preferences = preferences,
                .clock = clock,
                .load = {},
                .later = [this](std::function<void()> task) { tasks.push_back(std::move(task)); }};
    }
    void send(const BridgeCommand& command) { Bridge(center).send(command); }
    /// A list like no other.
    std::vector<Profile> anotherList() {
        return {profileNamed("List " + std::to_string(++lists), kind::Load{flatAt70})};
    }
    void save() { send(command::SaveProfiles{saved = anotherList()}); }
    void turn() {
        for (const auto& task : std::exchange(tasks, {}))
            task();
    }

    SimulatedMac mac{{.scenario = Scenario::idle, .fillers = 0}};
    SMC smc{mac};
    InProcessNotificationCenter center;
    CountingPreferences preferences;
    SimulatedClock clock;
    std::vector<std::function<void()>> tasks;
    std::vector<BridgeState> heard;
    int lists = 0;
    std::vector<Profile> saved;
    ObserverToken token =
        Bridge(center).onState([this](const BridgeState& state) { heard.push_back(state); });
};

/// One that has begun.
class AgentTurnTest : public AgentsFirstTurn {
  protected:
    AgentTurnTest() {
        preferences.writes = 0;
        heard.clear();
    }

    Agent agent{seams()};
};

TEST_F(AgentsFirstTurn, DrivesTheFansBeforeItStoresTheStarters) {
    ProfileStore(preferences).setSelection(action::Fixed{1});
    int seen = 0;
    preferences.atWrite = [&] {
        ++seen;
        EXPECT_TRUE(smc.fan(0).manual);
        EXPECT_TRUE(heard.empty()) << "whoever hears of them can go by their being stored";
    };
    const Agent agent(seams());
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(ProfileStore(preferences).profiles(), starterProfiles());
    EXPECT_EQ(heard.size(), 1U);
}

TEST_F(AgentsFirstTurn, DrivesTheFansBeforeItKeepsProfilesThatCannotBeRead) {
    preferences.setData(ProfileStore::profilesKey, Preferences::Data(1, std::byte{'{'}));
    Agent agent(seams());
    int seen = 0;
    preferences.atWrite = [&] {
        ++seen;
        EXPECT_TRUE(smc.fan(0).manual);
    };
    send(command::Select{action::Fixed{1}});
    save();
    EXPECT_EQ(seen, 1) << "the copy";
    turn();
    EXPECT_EQ(seen, 3) << "selection and profiles";
    EXPECT_EQ(ProfileStore(preferences).profiles(), saved);
}

TEST_F(AgentTurnTest, ConfirmsThousandsOfSavesThatArriveTogetherByOneStateAndStoresThemOnce) {
    for (int i = 0; i < 5000; ++i)
        save();
    EXPECT_TRUE(heard.empty());
    EXPECT_EQ(tasks.size(), 1U);
    turn();
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0].profiles, saved);
    EXPECT_EQ(preferences.writes, 1);
    EXPECT_EQ(ProfileStore(preferences).profiles(), saved);
    EXPECT_TRUE(tasks.empty());
}

TEST_F(AgentTurnTest, AnswersAReaderBeforeItStoresTheSavesThatArriveBehindHim) {
    send(command::RequestState{});
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0].profiles, starterProfiles());
    for (int i = 0; i < 5000; ++i)
        save();
    EXPECT_EQ(preferences.writes, 0);
    turn();
    ASSERT_EQ(heard.size(), 2U);
    EXPECT_EQ(heard[1].profiles, saved);
}

TEST_F(AgentTurnTest, KeepsAReaderBehindThousandsOfSavesWaitingForOneWrite) {
    for (int i = 0; i < 5000; ++i)
        save();
    send(command::RequestState{});
    for (int i = 0; i < 5000; ++i)
        save();
    turn();
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0].profiles, saved) << "what arrived before the request is part of the answer";
    EXPECT_EQ(preferences.writes, 1);
}

TEST_F(AgentTurnTest, AnswersManyReadersTogether) {
    for (int i = 0; i < 1000; ++i)
        send(command::RequestState{});
    turn();
    EXPECT_EQ(heard.size(), 2U) << "the first one at once, and all the others";
    EXPECT_EQ(preferences.writes, 0);
}

TEST_F(AgentTurnTest, ConfirmsEachTurnByAStateOfItsOwn) {
    for (std::size_t turns = 1; turns <= 3; ++turns) {
        save();
        turn();
        EXPECT_EQ(heard.size(), turns);
        EXPECT_EQ(heard.back().profiles, saved);
    }
}

TEST_F(AgentTurnTest, HasTheLastOfSeveralCommandsDecide) {
    send(command::Select{action::Fixed{1}});
    send(command::Select{action::Fixed{0.25}});
    EXPECT_FALSE(smc.fan(0).manual);
    turn();
    EXPECT_NEAR(smc.fan(0).target, 1200 + 0.25 * 4577, 0.01);
    EXPECT_EQ(heard.size(), 1U);
}

TEST_F(AgentTurnTest, LetsATickConfirmWhatHasArrived) {
    save();
    agent.tick();
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(ProfileStore(preferences).profiles(), saved);
    turn();
    EXPECT_EQ(heard.size(), 1U) << "and nothing is left for the turn";
}

TEST_F(AgentTurnTest, DrivesTheFansBeforeItWaitsForTheDisk) {
    int seen = 0;
    preferences.atWrite = [&] {
        ++seen;
        EXPECT_TRUE(smc.fan(0).manual);
        EXPECT_EQ(heard.size(), static_cast<std::size_t>(seen - 1)) << "not confirmed yet";
    };
    send(command::Select{action::Fixed{1}});
    turn();
    EXPECT_EQ(seen, 1);
    smc.setAuto();
    send(command::Select{action::Fixed{0.5}});
    agent.tick();
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(heard.size(), 2U);
}

TEST_F(AgentTurnTest, DrivesTheFansBeforeItTriesToStoreAgain) {
    preferences.fails = true;
    send(command::Select{action::Fixed{1}});
    turn();
    smc.setAuto();
    const int before = preferences.writes;
    preferences.atWrite = [&] { EXPECT_TRUE(smc.fan(0).manual); };
    clock.advance(CheckedPreferences::interval + 1);
    agent.tick();
    EXPECT_EQ(preferences.writes, before + 1);
}

TEST_F(AgentTurnTest, HandsTheFansBackBeforeItWaitsForTheDisk) {
    send(command::Select{action::Fixed{1}});
    turn();
    ASSERT_TRUE(smc.fan(0).manual);
    int seen = 0;
    preferences.atWrite = [&] {
        ++seen;
        EXPECT_FALSE(smc.fan(0).manual);
    };
    save();
    agent.end();
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(ProfileStore(preferences).profiles(), saved);
}

TEST_F(AgentTurnTest, DoesNothingOnceItHasEnded) {
    send(command::Select{action::Fixed{1}});
    turn();
    save();
    agent.end();
    const std::size_t before = heard.size();
    agent.wake();
    agent.tick();
    agent.sleep();
    agent.wake();
    turn();
    EXPECT_FALSE(smc.fan(0).manual);
    EXPECT_EQ(heard.size(), before);
    EXPECT_EQ(heard.back().status, "The agent has ended. The fans are automatic.");
}

TEST_F(AgentTurnTest, StoresWhatHasArrivedThoughItEnds) {
    send(command::Select{action::Fixed{1}});
    save();
    EXPECT_EQ(agent.end(), std::nullopt);
    EXPECT_EQ(ProfileStore(preferences).profiles(), saved);
    EXPECT_FALSE(smc.fan(0).manual);
    turn();
    EXPECT_EQ(heard.size(), 1U);
    EXPECT_FALSE(smc.fan(0).manual) << "nor are the fans taken again";
}

} // namespace
} // namespace tervale
