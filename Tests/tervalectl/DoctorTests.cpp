#include "Agent/Agent.h"
#include "Profiles/ProfileStore.h"
#include "SMC/SMC.h"
#include "SMC/ScriptedRegistry.h"
#include "tervalectl/CommandRunner.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace tervale;

namespace {

Preferences::Data dataOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

/// In memory, on a disk that fails.
class FailingPreferences final : public Preferences {
  public:
    std::optional<Data> data(const std::string& key) const override {
        auto found = stored.data(key);
        if (found && losesAByte)
            found->pop_back();
        return found;
    }
    bool contains(const std::string& key) const override { return stored.contains(key); }
    std::optional<std::string> setData(const std::string& key, const Data& data) override {
        if (data.size() >= room)
            return "No space left on device";
        return stored.setData(key, data);
    }
    bool keepCopy(const std::string& key, const std::string& copy) override {
        return stored.keepCopy(key, copy);
    }
    std::vector<std::string> keys(const std::string& prefix) const override {
        return stored.keys(prefix);
    }
    void remove(const std::string& key) override { stored.remove(key); }

    InMemoryPreferences stored;
    /// In bytes, for a value.
    std::size_t room = 10000;
    bool losesAByte = false;
};

class DoctorTest : public testing::Test, protected CommandRunner {
  protected:
    /// The line of this check, without runs of spaces.
    std::string line(const std::string& check) {
        std::istringstream lines(output);
        for (std::string text; std::getline(lines, text);) {
            if (text.starts_with(check + "  "))
                return QString::fromStdString(text).simplified().toStdString();
        }
        return {};
    }
    void store(const std::string& key, std::string_view text) {
        preferences.setData(key, dataOf(text));
    }
};

class DoctorCommand : public DoctorTest {
  protected:
    ScriptedAgent agent{center};
};

/// On an agent as it is, which is told something, or whose machine fails.
class DoctorOnARealAgent : public DoctorTest {
  protected:
    void start(AgentStatus::Writing writing = AgentStatus::Writing::done) {
        smc.emplace(mac);
        agent.emplace(Agent::Seams{.smc = *smc,
                                   .center = center,
                                   .preferences = preferences,
                                   .clock = clock,
                                   .load = nullptr,
                                   .guard = [this] { return hasGuard; },
                                   .writing = writing});
    }
    void send(const BridgeCommand& command) { bridge.send(command); }
    /// What the doctor says of the agent, such as "good" and the agent's status.
    std::string judgement() {
        run({"doctor", "--timeout", "1"});
        const std::string text = line("Agent");
        return text.empty() ? output : text.substr(std::string("Agent ").size());
    }

    bool hasGuard = true;
    std::optional<SMC> smc;
    Bridge bridge{center};
    std::optional<Agent> agent;
};

/// The machine has no controller.
class EmptyRegistry final : public IORegistry {
  public:
    std::optional<Service> findService(const std::string&) override { return std::nullopt; }
    Status open(Service, std::uint32_t, Connection&) override { return -1; }
    void release(Service) override {}
    Status callStruct(Connection, std::uint32_t, const Structure&, Structure&) override {
        return -1;
    }
    void close(Connection) override {}
};

} // namespace

TEST_F(DoctorCommand, FindsNothingWrongWhereAllIsThere) {
    agent.state.status = "Tervale is up to date.";
    agentProcess = {1234, "2026-01-31T09:13:28Z", 1235};
    EXPECT_EQ(run({"doctor"}), ExitStatus::done);
    EXPECT_EQ(line("Controller"), "Controller good answers");
    EXPECT_EQ(line("Keys"), "Keys good " + std::to_string(mac.keyCount()));
    EXPECT_EQ(line("Fans"), "Fans good 2: 1200–5777 rpm, 1300–6241 rpm");
    EXPECT_EQ(line("Sensors"), "Sensors good CPU 5, GPU 3, Memory 1, SSD 1, Power 1, Other 1");
    EXPECT_EQ(line("Session bus"), "Session bus good reachable");
    EXPECT_EQ(line("Agent"), "Agent good process 1234 since 2026-01-31T09:13:28Z, guard 1235: "
                             "Tervale is up to date.");
    EXPECT_EQ(line("Preferences"), "Preferences good readable, writable; profiles: 0");
}

TEST_F(DoctorCommand, LeavesNothingInThePreferences) {
    EXPECT_EQ(run({"doctor"}), ExitStatus::done);
    EXPECT_TRUE(preferences.keys("").empty());
}

TEST_F(DoctorCommand, GoesOnWithoutAController) {
    EmptyRegistry empty;
    registry = &empty;
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_TRUE(line("Controller").starts_with("Controller wrong ")) << output;
    for (const std::string check : {"Keys", "Fans", "Sensors"})
        EXPECT_EQ(line(check), check + " wrong not known without a controller");
    EXPECT_TRUE(line("Agent").starts_with("Agent good")) << output;
}

TEST_F(DoctorCommand, OutlivesAControllerThatCountsByWhatIsNoNumber) {
    test::ScriptedRegistry rubbish;
    registry = &rubbish;
    for (const float count : {std::nanf(""), -3.0F, 3e38F}) {
        rubbish.setFloat("#KEY", count);
        rubbish.setFloat("FNum", count);
        EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
        EXPECT_EQ(line("Keys"), "Keys wrong #KEY: no number of keys") << count;
        EXPECT_EQ(line("Fans"), "Fans wrong FNum: no number of fans") << count;
        EXPECT_EQ(line("Sensors"), "Sensors wrong #KEY: no number of keys") << count;
        EXPECT_TRUE(line("Agent").starts_with("Agent good")) << "the rest is looked at";
    }
}

TEST_F(DoctorCommand, DoesNotWaitForBillionsOfKeysAndFans) {
    test::ScriptedRegistry rubbish;
    registry = &rubbish;
    rubbish.set("#KEY", {"ui32", test::bytesOf({255, 255, 255, 255}), {}});
    rubbish.setFloat("FNum", 1e9F);
    EXPECT_EQ(run({"doctor", "--json"}), ExitStatus::refused);
    EXPECT_NE(output.find(R"("#KEY: 4294967295 keys")"), std::string::npos) << output;
    EXPECT_NE(output.find(R"("FNum: 1000000000 fans")"), std::string::npos) << output;
}

TEST_F(DoctorCommand, TellsOfLimitsThatKeepAFanFromBeingDriven) {
    test::ScriptedRegistry rubbish;
    registry = &rubbish;
    rubbish.setByte("FNum", 2);
    for (const std::string fan : {"F0", "F1"}) {
        rubbish.setFloat(fan + "Ac", std::nanf(""));
        rubbish.setFloat(fan + "Tg", -3e38F);
        rubbish.setFloat(fan + "Mn", 1200);
        rubbish.setFloat(fan + "Mx", 6000);
    }
    rubbish.setFloat("F1Mx", std::nanf(""));
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Fans"), "Fans wrong 2: 1200–6000 rpm, 1200–– rpm; fan 1 has no limits");
}

TEST_F(DoctorCommand, MissesTheSensorsThatSafetyRestsOn) {
    mac = SimulatedMac({.scenario = Scenario::idle, .sensors = 0});
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_TRUE(line("Sensors").starts_with("Sensors wrong CPU 0, GPU 0")) << output;
}

TEST_F(DoctorCommand, TellsThatARunningAgentDoesNotAnswer) {
    timeout = 0.05;
    agent.answers = false;
    agentProcess = {1234, "2026-01-31T09:13:28Z", std::nullopt};
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Agent"), "Agent wrong process 1234 since 2026-01-31T09:13:28Z, no guard: The "
                             "agent did not answer within 0.05 s.");
}

TEST_F(DoctorCommand, TellsThatThereIsNoSessionBus) {
    hasChannel = false;
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Session bus"), "Session bus wrong not reachable");
}

TEST_F(DoctorCommand, TellsWhichPreferencesCannotBeRead) {
    preferences.setString(ProfileStore::selectionKey, "not data");
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Preferences"), "Preferences wrong selection cannot be read");
}

TEST_F(DoctorCommand, TellsWhichPreferencesAreNoneOfTheAgents) {
    store(ProfileStore::profilesKey, R"([{"id":7}])");
    store(ProfileStore::selectionKey, R"({"automatic":{}})");
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_TRUE(line("Preferences").starts_with("Preferences wrong profiles cannot be read: "))
        << output;
    EXPECT_EQ(line("Preferences").find("selection"), std::string::npos) << output;
}

TEST_F(DoctorCommand, StoresAsMuchAsTheAgentMayHaveTo) {
    FailingPreferences small;
    otherPreferences = &small;
    EXPECT_EQ(run({"doctor"}), ExitStatus::done) << output;
    std::string profiles = "[]";
    profiles.resize(small.room, ' ');
    // As when the disk has filled up since.
    small.stored.setData(ProfileStore::profilesKey, dataOf(profiles));
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Preferences"),
              "Preferences wrong nothing can be stored: No space left on device");
    EXPECT_EQ(small.keys(""), std::vector<std::string>{ProfileStore::profilesKey});
}

TEST_F(DoctorCommand, ReadsBackWhatItStored) {
    FailingPreferences forgetful;
    forgetful.losesAByte = true;
    otherPreferences = &forgetful;
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Preferences"),
              "Preferences wrong nothing can be stored: it does not read back");
    EXPECT_TRUE(forgetful.keys("").empty());
}

TEST_F(DoctorCommand, TouchesNothingThatIsStored) {
    store(ProfileStore::profilesKey, "[]");
    store("doctor", "somebody's");
    EXPECT_EQ(run({"doctor"}), ExitStatus::done) << output;
    EXPECT_EQ(preferences.keys(""), (std::vector<std::string>{"doctor", "profiles"}));
    EXPECT_EQ(preferences.data("doctor"), dataOf("somebody's"));
}

TEST_F(DoctorCommand, TellsThatTheGuardIsGone) {
    agentProcess = {1234, "2026-01-31T09:13:28Z", 1235};
    guard.reset();
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Agent"),
              "Agent wrong process 1234 since 2026-01-31T09:13:28Z, guard 1235 is gone");
}

TEST_F(DoctorCommand, NamesNoProcessBeforeTheAgentDoes) {
    agentProcess = AgentLock::Holder{};
    EXPECT_EQ(run({"doctor"}), ExitStatus::done) << output;
    EXPECT_EQ(line("Agent"), "Agent good a process that has not told its number yet");
    EXPECT_EQ(run({"agent"}), ExitStatus::done);
    EXPECT_EQ(line("Process"), "Process not told yet");
    EXPECT_EQ(run({"agent", "--json"}), ExitStatus::done);
    EXPECT_EQ(output.find("\"process\""), std::string::npos) << output;
}

TEST_F(DoctorCommand, NeedsNoGuardBeforeAFanIsTaken) {
    agentProcess = {1234, "2026-01-31T09:13:28Z", std::nullopt};
    guard.reset();
    EXPECT_EQ(run({"doctor"}), ExitStatus::done) << output;
}

TEST_F(DoctorOnARealAgent, FindsNothingWrongWithAnAnswer) {
    start();
    EXPECT_EQ(judgement(), "good");
    send(command::CheckForUpdates{});
    EXPECT_EQ(judgement(), "good Tervale is up to date.");
    send(command::StartTimer{action::Fixed{1}, -1});
    EXPECT_EQ(judgement(), "good That timer was not set: it must end within 24 hours.");
    const std::string name(Bridge::maximumTextSize - 1000, 'n');
    send(command::SaveProfiles{{{UUID::random(), name, kind::Load{}}}});
    EXPECT_EQ(judgement(), "good Those profiles were not saved: they are too long.");
}

TEST_F(DoctorOnARealAgent, FindsNothingWrongWithFansAtFullSpeedInTheHeat) {
    mac = SimulatedMac({.scenario = Scenario::heatwave, .fillers = 0});
    start();
    const auto isTooHot = [this] { return agent->currentState().status.has_value(); };
    for (int second = 0; second < 900 && !isTooHot(); ++second) {
        mac.advance(1);
        clock.advance(1);
        agent->tick();
    }
    EXPECT_TRUE(judgement().starts_with("good Too hot: ")) << output;
}

TEST_F(DoctorOnARealAgent, FindsItWrongThatTheFansAreNotAtFullSpeedInTheHeat) {
    mac = SimulatedMac({.scenario = Scenario::heatwave, .fillers = 0});
    hasGuard = false;
    start();
    const auto isTooHot = [this] { return agent->currentState().status.has_value(); };
    for (int second = 0; second < 900 && !isTooHot(); ++second) {
        mac.advance(1);
        clock.advance(1);
        agent->tick();
    }
    EXPECT_TRUE(judgement().starts_with("wrong The fans are automatic, since no guard ")) << output;
    EXPECT_NE(output.find("It is too hot: the fans should run at Max "), std::string::npos)
        << output;
}

TEST_F(DoctorOnARealAgent, TellsOfProfilesThatCannotBeReadUntilTheyAreReplaced) {
    preferences.setString(ProfileStore::profilesKey, "no data");
    start();
    EXPECT_TRUE(judgement().starts_with("wrong The stored profiles cannot be read.")) << output;
    send(command::SaveProfiles{});
    EXPECT_TRUE(judgement().starts_with("good The profiles that could not be read are kept as "))
        << output;
}

TEST_F(DoctorOnARealAgent, TellsWhatKeepsTheFansAutomatic) {
    hasGuard = false;
    start();
    send(command::Select{action::Fixed{1}});
    EXPECT_TRUE(judgement().starts_with("wrong The fans are automatic, since no guard ")) << output;
}

TEST_F(DoctorOnARealAgent, TellsThatNothingIsWrittenInADryRun) {
    start(AgentStatus::Writing::pretended);
    EXPECT_EQ(judgement(), "wrong Dry run: nothing is written to the controller.");
    send(command::CheckForUpdates{});
    EXPECT_EQ(judgement(),
              "wrong Tervale is up to date. Dry run: nothing is written to the controller.");
}

TEST_F(DoctorOnARealAgent, TellsWhatTheControllerRefuses) {
    start();
    mac.inject(smc->modeKey(0), fault::KernelError{static_cast<IORegistry::Status>(0xe00002c1)});
    send(command::Select{action::Fixed{1}});
    EXPECT_TRUE(judgement().starts_with("wrong This agent may not write to the controller. "))
        << output;
    mac.inject(smc->modeKey(0), fault::RefusedValue{});
    agent->tick();
    EXPECT_TRUE(judgement().starts_with("wrong " + smc->modeKey(0) + ": SMC error ")) << output;
}

TEST_F(DoctorOnARealAgent, TellsThatSomethingCouldNotBeStored) {
    FailingPreferences full;
    full.room = 0;
    smc.emplace(mac);
    agent.emplace(Agent::Seams{
        .smc = *smc, .center = center, .preferences = full, .clock = clock, .load = nullptr});
    send(command::CheckForUpdates{});
    EXPECT_TRUE(judgement().starts_with("wrong Tervale is up to date. Not everything could be "))
        << output;
}

TEST_F(DoctorCommand, TellsThatTheAgentHasEnded) {
    agent.state.status = "The agent has ended. The fans are automatic.";
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Agent"), "Agent wrong " + *agent.state.status);
}

TEST_F(DoctorCommand, WritesJSON) {
    hasChannel = false;
    EXPECT_EQ(run({"doctor", "--json"}), ExitStatus::refused);
    EXPECT_TRUE(output.starts_with(R"([{"check":"Controller","ok":true,"details":"answers"},)"))
        << output;
    EXPECT_NE(output.find(R"({"check":"Session bus","ok":false,"details":"not reachable"})"),
              std::string::npos)
        << output;
}
