#include "Profiles/ProfileStore.h"
#include "tervalectl/CommandRunner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tervale;

namespace {

class Doctor : public testing::Test, protected CommandRunner {
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

    ScriptedAgent agent{center};
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

TEST_F(Doctor, FindsNothingWrongWhereAllIsThere) {
    agent.state.status = "All is well.";
    agentProcess = {1234, "2026-01-31T09:13:28Z", 1235};
    EXPECT_EQ(run({"doctor"}), ExitStatus::done);
    EXPECT_EQ(line("Controller"), "Controller good answers");
    EXPECT_EQ(line("Keys"), "Keys good " + std::to_string(mac.keyCount()));
    EXPECT_EQ(line("Fans"), "Fans good 2: 1200–5777 rpm, 1300–6241 rpm");
    EXPECT_EQ(line("Sensors"), "Sensors good CPU 5, GPU 3, Memory 1, SSD 1, Power 1, Other 1");
    EXPECT_EQ(line("Session bus"), "Session bus good reachable");
    EXPECT_EQ(line("Agent"), "Agent good process 1234 since 2026-01-31T09:13:28Z, guard 1235: "
                             "All is well.");
    EXPECT_EQ(line("Preferences"), "Preferences good readable, writable; profiles: 0");
}

TEST_F(Doctor, LeavesNothingInThePreferences) {
    EXPECT_EQ(run({"doctor"}), ExitStatus::done);
    EXPECT_TRUE(preferences.keys("").empty());
}

TEST_F(Doctor, GoesOnWithoutAController) {
    EmptyRegistry empty;
    registry = &empty;
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_TRUE(line("Controller").starts_with("Controller wrong ")) << output;
    EXPECT_EQ(line("Fans"), "");
    EXPECT_TRUE(line("Agent").starts_with("Agent good")) << output;
}

TEST_F(Doctor, MissesTheSensorsThatSafetyRestsOn) {
    mac = SimulatedMac({.scenario = Scenario::idle, .sensors = 0});
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_TRUE(line("Sensors").starts_with("Sensors wrong CPU 0, GPU 0")) << output;
}

TEST_F(Doctor, TellsThatARunningAgentDoesNotAnswer) {
    timeout = 0.05;
    agent.answers = false;
    agentProcess = {1234, "2026-01-31T09:13:28Z", std::nullopt};
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Agent"), "Agent wrong process 1234 since 2026-01-31T09:13:28Z, no guard: The "
                             "agent in the menu bar did not answer within 0.05 s.");
}

TEST_F(Doctor, TellsThatThereIsNoSessionBus) {
    hasChannel = false;
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Session bus"), "Session bus wrong not reachable");
}

TEST_F(Doctor, TellsWhichPreferencesCannotBeRead) {
    preferences.setString(ProfileStore::selectionKey, "not data");
    EXPECT_EQ(run({"doctor"}), ExitStatus::refused);
    EXPECT_EQ(line("Preferences"), "Preferences wrong selection cannot be read");
}

TEST_F(Doctor, WritesJSON) {
    hasChannel = false;
    EXPECT_EQ(run({"doctor", "--json"}), ExitStatus::refused);
    EXPECT_TRUE(output.starts_with(R"([{"check":"Controller","ok":true,"details":"answers"},)"))
        << output;
    EXPECT_NE(output.find(R"({"check":"Session bus","ok":false,"details":"not reachable"})"),
              std::string::npos)
        << output;
}
