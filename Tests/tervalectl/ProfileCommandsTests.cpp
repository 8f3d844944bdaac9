#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Profiles/StoringFailure.h"
#include "Support/TemporaryFolder.h"
#include "tervalectl/CommandRunner.h"
#include "tervalectl/PublishedState.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <thread>

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

TEST_F(ProfileCommands, MergeAFileIntoWhatTheAgentHas) {
    agent.state.profiles = {quiet, busy};
    Profile louder = quiet;
    louder.name = "Louder";
    const Profile added{UUID::random(), "Added", kind::Load{rising}};
    ASSERT_EQ(run({"profiles", "import", "--merge", "-"}, encode(std::vector{added, louder})),
              ExitStatus::done);
    EXPECT_EQ(agent.state.profiles, (std::vector{louder, busy, added}));
    EXPECT_EQ(run({"profiles", "import", "--merge", "-"}, encode(std::vector{broken})),
              ExitStatus::refused);
    EXPECT_EQ(agent.state.profiles, (std::vector{louder, busy, added}));
}

TEST_F(ProfileCommands, MergeAScheduleThatNamesAProfileOfTheAgents) {
    const Profile nights{UUID::random(), "Nights",
                         kind::Schedule{{{0, 60, action::Profile{quiet.id}}}}};
    const std::string text = encode(std::vector{nights});
    EXPECT_EQ(run({"profiles", "import", "-"}, text), ExitStatus::refused);
    EXPECT_EQ(run({"profiles", "import", "--merge", "-"}, text), ExitStatus::done) << errors;
    EXPECT_EQ(agent.state.profiles, (std::vector{quiet, nights}));
}

TEST_F(ProfileCommands, RemoveOneByNameOrId) {
    agent.state.profiles = {quiet, busy};
    ASSERT_EQ(run({"profiles", "remove", "Quiet"}), ExitStatus::done);
    EXPECT_EQ(agent.state.profiles, std::vector{busy});
    EXPECT_EQ(run({"profiles", "remove", "Quiet"}), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: There is no profile 'Quiet'.\n");
    ASSERT_EQ(run({"profiles", "remove", QString::fromStdString(busy.id.text())}),
              ExitStatus::done);
    EXPECT_TRUE(agent.state.profiles.empty());
}

TEST_F(ProfileCommands, KeepAProfileThatAScheduleUses) {
    const Profile nights{UUID::random(), "Nights",
                         kind::Schedule{{{0, 60, action::Profile{quiet.id}}}}};
    agent.state.profiles = {quiet, nights};
    EXPECT_EQ(run({"profiles", "remove", "Quiet"}), ExitStatus::refused);
    EXPECT_TRUE(errors.starts_with("tervalectl: Nights: ")) << errors;
    EXPECT_EQ(agent.state.profiles, (std::vector{quiet, nights}));
}

TEST_F(ProfileCommands, DrawACurve) {
    ASSERT_EQ(run({"profiles", "show", "Quiet"}), ExitStatus::done);
    EXPECT_TRUE(output.starts_with("PROFILE  KIND                      ID\n"
                                   "Quiet    temperature, GPU average  " +
                                   quiet.id.text() +
                                   "\n\n"
                                   "  100% │"))
        << output;
    const std::size_t table = output.find("TEMPERATURE");
    ASSERT_NE(table, std::string::npos);
    EXPECT_NE(output.substr(0, table).find("●"), std::string::npos) << "the points are drawn";
    EXPECT_TRUE(
        output.substr(table).starts_with("TEMPERATURE  SPEED  FANS                      POINT\n"
                                         "      30 °C    20%  ████▊                     ●\n"
                                         "      35 °C    26%  ██████▎\n"))
        << output;
    EXPECT_TRUE(output.ends_with("      80 °C    80%  ███████████████████▎      ●\n")) << output;
    EXPECT_EQ(std::ranges::count(output.substr(table), '\n'), 1 + 11);
    ASSERT_EQ(run({"profiles", "show", "Quiet", "--json"}), ExitStatus::done);
    EXPECT_EQ(output, encode(quiet) + '\n');
}

TEST_F(ProfileCommands, ShowASchedule) {
    agent.state.profiles = {
        {UUID::random(), "Nights", kind::Schedule{{{1320, 390, action::Fixed{1}}}}}};
    ASSERT_EQ(run({"profiles", "show", "Nights"}), ExitStatus::done);
    EXPECT_TRUE(output.ends_with("FROM   TO     ACTION\n22:00  06:30  Max\n")) << output;
}

TEST_F(ProfileCommands, ShowWhateverNumbersAProfileHas) {
    agent.state.profiles = {
        {UUID::random(), "Wild", kind::Load{Curve{{{-1e308, -1e308}, {50, 0.5}, {1e308, 1e308}}}}},
        {UUID::random(), "Empty", kind::Load{}},
        {UUID::random(), "Ages", kind::Schedule{{{-1, INT64_MAX, action::Automatic{}}}}}};
    for (const char* name : {"Wild", "Empty", "Ages"})
        EXPECT_EQ(run({"profiles", "show", name}), ExitStatus::done) << errors;
    EXPECT_TRUE(output.ends_with("–     –   Automatic\n")) << output;
}

TEST_F(ProfileCommands, TellWhichProfileHasNoName) {
    std::vector<Profile> profiles{quiet, busy};
    profiles[1].name = " ";
    EXPECT_EQ(run({"profiles", "validate", "-"}, encode(profiles)), ExitStatus::refused);
    EXPECT_TRUE(output.starts_with("Profile 2: ")) << output;
}

TEST_F(ProfileCommands, RefuseWhatIsTooLargeToBeProfiles) {
    EXPECT_EQ(run({"profiles", "validate", "/dev/zero"}), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: There are more than 16 MiB in /dev/zero.\n");
    EXPECT_EQ(run({"profiles", "validate", "-"}, std::string(17'000'000, ' ')),
              ExitStatus::refused);
}

TEST_F(ProfileCommands, RefuseAListThatIsTooLongToBeSent) {
    Profile endless = busy;
    endless.name.assign(Bridge::maximumTextSize, 'n');
    std::ofstream(folder.path / "long") << encode(std::vector<Profile>{endless});
    EXPECT_EQ(run({"profiles", "import", file("long")}), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: Those profiles were not saved: they are too long.\n");
    EXPECT_EQ(agent.state.profiles, std::vector{quiet});
}

TEST_F(ProfileCommands, ImportFromAPipe) {
    const std::string path = folder.path / "pipe";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    std::thread writer([&] {
        std::ofstream pipe(path);
        const std::string text = encode(std::vector{busy});
        pipe << text.substr(0, 10) << std::flush << text.substr(10);
    });
    EXPECT_EQ(run({"profiles", "import", file("pipe")}), ExitStatus::done) << errors;
    writer.join();
    EXPECT_EQ(agent.state.profiles, std::vector{busy});
}

TEST_F(ProfileCommands, PrintNamesThatATerminalWouldObeyAsEscapes) {
    agent.state.profiles = {{UUID::random(), "a\x7F\u009Bz", kind::Load{rising}}};
    for (const char* command : {"export", "list"}) {
        ASSERT_EQ(run({"profiles", command, "--json"}), ExitStatus::done);
        EXPECT_NE(output.find("a\\u007f\\u009bz"), std::string::npos) << output;
    }
    ASSERT_EQ(run({"profiles", "validate", "--json", "-"}, output), ExitStatus::done);
    EXPECT_NE(output.find("a\\u007f\\u009bz"), std::string::npos) << output;
}

TEST_F(ProfileCommands, PrintTheStateThatConfirmsAnImport) {
    ASSERT_EQ(run({"profiles", "import", "--json", "-"}, encode(std::vector{busy})),
              ExitStatus::done);
    EXPECT_EQ(output, lineOf(agent.state));
}

TEST_F(ProfileCommands, TellThatTheAgentCouldNotStoreThem) {
    agent.state.status = "Too hot. " + storingFailure("No space left on device");
    for (const QStringList& arguments :
         std::vector<QStringList>{{"profiles", "import", "-"}, {"profiles", "remove", "Busy"}}) {
        EXPECT_EQ(run(arguments, encode(std::vector{busy})), ExitStatus::refused);
        EXPECT_NE(errors.find("could be stored: No space left on device."), std::string::npos)
            << errors;
        EXPECT_EQ(output, "");
    }
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
