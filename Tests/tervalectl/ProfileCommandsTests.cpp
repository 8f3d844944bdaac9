#include "Profiles/Bridge.h"
#include "Profiles/JSONCoding.h"
#include "Support/TemporaryFolder.h"
#include "tervalectl/CommandRunner.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace tervale;

namespace {

const Curve rising{{{30, 0.2}, {80, 0.8}}};
const Profile quiet{UUID::random(), "Quiet",
                    kind::Temperature{TemperatureInput::averageOf(SensorGroup::gpu), rising}};
const Profile busy{UUID::random(), "Busy", kind::Load{rising}};
const Profile broken{UUID::random(), "Broken", kind::Load{Curve{{{30, 0.2}}}}};

class ProfileCommands : public testing::Test, protected CommandRunner {
  protected:
    ProfileCommands() {
        agent.state.profiles = {quiet};
        agent.obey = [this](const BridgeCommand& command) {
            if (const auto* save = std::get_if<command::SaveProfiles>(&command))
                agent.state.profiles = save->profiles;
        };
    }

    QString file(const char* name) const { return QString::fromStdString(folder.path / name); }
    std::string content(const char* name) const {
        std::ifstream stream(folder.path / name);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    TemporaryFolder folder;
    ScriptedAgent agent{center};
};

} // namespace

TEST_F(ProfileCommands, ListWhatTheAgentHas) {
    agent.state.profiles = {quiet, busy, {UUID{}, "Nights", kind::Schedule{}}};
    ASSERT_EQ(run({"profiles", "list"}), ExitStatus::done);
    EXPECT_EQ(output, "PROFILE  KIND                      ID\n"
                      "Quiet    temperature, GPU average  " +
                          quiet.id.text() +
                          "\n"
                          "Busy     load                      " +
                          busy.id.text() +
                          "\n"
                          "Nights   schedule                  "
                          "00000000-0000-0000-0000-000000000000\n");
    ASSERT_EQ(run({"profiles", "list", "--json"}), ExitStatus::done);
    EXPECT_EQ(output, encode(agent.state.profiles) + '\n');
}

TEST_F(ProfileCommands, ImportWhatWasExported) {
    agent.state.profiles = {quiet, busy};
    ASSERT_EQ(run({"profiles", "export", file("p.json")}), ExitStatus::done);
    EXPECT_EQ(content("p.json"), encode(agent.state.profiles) + '\n');
    agent.state.profiles.clear();
    agent.heard.clear();
    ASSERT_EQ(run({"profiles", "import", file("p.json")}), ExitStatus::done);
    EXPECT_EQ(agent.heard, (std::vector<BridgeCommand>{command::SaveProfiles{{quiet, busy}}}));
    EXPECT_EQ(agent.state.profiles, (std::vector<Profile>{quiet, busy}));
}

TEST_F(ProfileCommands, UseTheStandardStreams) {
    ASSERT_EQ(run({"profiles", "export"}), ExitStatus::done);
    const std::string exported = output;
    EXPECT_EQ(exported, encode(agent.state.profiles) + '\n');
    ASSERT_EQ(run({"profiles", "import", "-"}, exported), ExitStatus::done);
    ASSERT_EQ(run({"profiles", "validate", "-"}, exported), ExitStatus::done);
    EXPECT_EQ(output, "");
}

TEST_F(ProfileCommands, RefuseToImportProfilesWithProblems) {
    const std::vector<Profile> profiles{quiet, broken};
    EXPECT_EQ(run({"profiles", "import", "-"}, encode(profiles)), ExitStatus::refused);
    EXPECT_TRUE(errors.starts_with("tervalectl: Broken: ")) << errors;
    EXPECT_TRUE(agent.heard.empty());
}

TEST_F(ProfileCommands, TellWhichProfileHasNoName) {
    std::vector<Profile> profiles{quiet, busy};
    profiles[1].name = " ";
    EXPECT_EQ(run({"profiles", "validate", "-"}, encode(profiles)), ExitStatus::refused);
    EXPECT_TRUE(output.starts_with("Profile 2: ")) << output;
}

TEST_F(ProfileCommands, ReplaceAFileThatIsThere) {
    ASSERT_EQ(run({"profiles", "export", file("p.json")}), ExitStatus::done);
    agent.state.profiles.clear();
    ASSERT_EQ(run({"profiles", "export", file("p.json")}), ExitStatus::done);
    EXPECT_EQ(content("p.json"), "[]\n");
}

TEST_F(ProfileCommands, RefuseWhatIsTooLargeToBeProfiles) {
    EXPECT_EQ(run({"profiles", "validate", "/dev/zero"}), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: There are more than 16 MiB in /dev/zero.\n");
    EXPECT_EQ(run({"profiles", "validate", "-"}, std::string(17'000'000, ' ')),
              ExitStatus::refused);
}

TEST_F(ProfileCommands, PrintTheStateThatConfirmsAnImport) {
    ASSERT_EQ(run({"profiles", "import", "--json", "-"}, encode(std::vector{busy})),
              ExitStatus::done);
    EXPECT_EQ(output, encode(agent.state) + '\n');
}

TEST_F(ProfileCommands, TellThatTheAgentKeptItsProfiles) {
    timeout = 0.05;
    agent.obey = nullptr;
    EXPECT_EQ(run({"profiles", "import", "-"}, encode(std::vector{busy})), ExitStatus::refused);
    EXPECT_TRUE(errors.starts_with("tervalectl: The agent did not take the command.")) << errors;
}

TEST_F(ProfileCommands, ValidateEachProfile) {
    const std::string text = encode(std::vector{quiet, broken});
    EXPECT_EQ(run({"profiles", "validate", "-"}, text), ExitStatus::refused);
    EXPECT_TRUE(output.starts_with("Broken: ")) << output;
    EXPECT_EQ(run({"profiles", "validate", "--json", "-"}, text), ExitStatus::refused);
    EXPECT_TRUE(output.starts_with("[{\"id\":\"" + quiet.id.text() +
                                   R"(","name":"Quiet","problems":[]},{"id":")" + broken.id.text() +
                                   R"(","name":"Broken","problems":[")"))
        << output;
    EXPECT_EQ(run({"profiles", "validate", "--json", "-"}, "[]"), ExitStatus::done);
    EXPECT_EQ(output, "[]\n");
    EXPECT_TRUE(agent.heard.empty());
}

TEST_F(ProfileCommands, SayWhatIsWrongWithAFile) {
    EXPECT_EQ(run({"profiles", "validate", file("absent")}), ExitStatus::refused);
    EXPECT_NE(errors.find("Cannot read"), std::string::npos) << errors;
    EXPECT_EQ(run({"profiles", "validate", "-"}, R"([{"id":7}])"), ExitStatus::refused);
    EXPECT_TRUE(errors.starts_with("tervalectl: No list of profiles is in standard input: "))
        << errors;
    EXPECT_EQ(run({"profiles", "export", file("absent/p.json")}), ExitStatus::refused);
    EXPECT_NE(errors.find("Cannot write"), std::string::npos) << errors;
}
