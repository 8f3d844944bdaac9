#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Support/TemporaryFolder.h"
#include "tervalectl/CommandRunner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sys/stat.h>
#include <thread>

using namespace tervale;

namespace {

const Profile replayed{*UUID::parse("00000000-0000-0000-0000-000000000001"), "Rising",
                       kind::Temperature{TemperatureInput::averageOf(SensorGroup::gpu),
                                         Curve{{{40, 0.0}, {80, 1.0}}}}};
const Profile byLoad{*UUID::parse("00000000-0000-0000-0000-000000000002"), "By load",
                     kind::Load{Curve{{{0, 0.0}, {100, 1.0}}}}};

class ReplayTest : public testing::Test, protected CommandRunner {
  protected:
    ReplayTest() { std::ofstream(folder.path / "p.json") << encode(std::vector{replayed, byLoad}); }

    ExitStatus replay(const char* selection, const std::string& trace,
                      const QStringList& options = {"--json"}) {
        return run(QStringList{"replay", "--profiles",
                               QString::fromStdString(folder.path / "p.json"), "--selection",
                               selection} +
                       options,
                   trace);
    }

    TemporaryFolder folder;
};

std::string tick(double time, const std::string& temperatures, const std::string& more = "") {
    return "{\"time\":" + std::to_string(time) + ",\"minute\":600" + more + ",\"temperatures\":{" +
           temperatures + "},\"fans\":[]}\n";
}

} // namespace

TEST_F(ReplayTest, FollowsACurveDownOneBandLate) {
    ASSERT_EQ(replay("profile Rising", tick(1, R"("GPU average":60)") +
                                           tick(2, R"("GPU average":58)") +
                                           tick(3, R"("GPU average":50)")),
              ExitStatus::done);
    const std::string needs = R"("needs":["CPU hottest","GPU average","GPU hottest"],)"
                              R"("needsLoad":false,)";
    EXPECT_EQ(output, "{\"time\":1," + needs + "\"target\":0.5,\"safety\":false}\n" +
                          "{\"time\":2," + needs + "\"target\":0.5,\"safety\":false}\n" +
                          "{\"time\":3," + needs + "\"target\":0.325,\"safety\":false}\n");
}

TEST_F(ReplayTest, HoldsTheSafetyLatchUntilTheHeatHasGone) {
    ASSERT_EQ(replay("automatic", tick(1, R"("CPU hottest":95)") + tick(2, R"("CPU hottest":85)") +
                                      tick(3, R"("CPU hottest":84.9)")),
              ExitStatus::done);
    const std::string needs = R"("needs":["CPU hottest","GPU hottest"],"needsLoad":false,)";
    EXPECT_EQ(output, "{\"time\":1," + needs + "\"target\":1,\"safety\":true}\n" + "{\"time\":2," +
                          needs + "\"target\":1,\"safety\":true}\n" + "{\"time\":3," + needs +
                          "\"target\":\"automatic\",\"safety\":false}\n");
}

TEST_F(ReplayTest, NeedsTheLoadForALoadCurve) {
    ASSERT_EQ(replay("profile By load", tick(1, "", ",\"load\":25") + tick(2, "")),
              ExitStatus::done);
    EXPECT_NE(output.find(R"("needsLoad":true,"target":0.25,)"), std::string::npos) << output;
    EXPECT_NE(output.find(R"("time":2,)"), std::string::npos);
    EXPECT_TRUE(output.ends_with("\"target\":\"automatic\",\"safety\":false}\n")) << output;
}

TEST_F(ReplayTest, TakesAnActionsJSON) {
    ASSERT_EQ(replay(R"({"fixed":{"_0":0.3}})", tick(1, "")), ExitStatus::done);
    EXPECT_NE(output.find("\"target\":0.3,"), std::string::npos) << output;
}

TEST_F(ReplayTest, ShowsTheCourseAsABar) {
    ASSERT_EQ(replay("profile Rising",
                     tick(36005, R"("GPU average":60)") + tick(36006, R"("CPU hottest":99)"), {}),
              ExitStatus::done);
    EXPECT_EQ(output, "    TIME  READING                    TARGET  FANS                      "
                      "SAFETY\n"
                      "10:00:05  GPU average 60 °C             50%  ████████████\n"
                      "10:00:06  GPU average –                100%  ████████████████████████  "
                      "engaged\n");
}

TEST_F(ReplayTest, ReadsATraceFromAFile) {
    const auto path = folder.path / "heat.jsonl";
    std::ofstream(path) << tick(1, "");
    ASSERT_EQ(replay("max", "", {"--json", QString::fromStdString(path)}), ExitStatus::done);
    EXPECT_EQ(std::ranges::count(output, '\n'), 1);
    EXPECT_EQ(replay("max", "", {"--json", QString::fromStdString(folder.path / "absent")}),
              ExitStatus::refused);
}

TEST_F(ReplayTest, ReadsATraceFromAPipe) {
    const std::string path = folder.path / "pipe";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(path) << tick(1, "") << std::flush << tick(2, ""); });
    EXPECT_EQ(replay("max", "", {"--json", QString::fromStdString(path)}), ExitStatus::done);
    writer.join();
    EXPECT_EQ(std::ranges::count(output, '\n'), 2);
}

TEST_F(ReplayTest, RefusesAMalformedLineWithItsNumber) {
    for (const char* line : {"x", "{}", "[]", R"({"time":1,"minute":1440,"temperatures":{}})",
                             R"({"time":1,"minute":-1,"temperatures":{}})",
                             R"({"time":"1","minute":1,"temperatures":{}})",
                             R"({"time":1,"minute":1,"temperatures":{"CPU hottest":"hot"}})",
                             R"({"time":1,"minute":1,"temperatures":[]})",
                             R"({"time":1,"minute":1,"load":[],"temperatures":{}})",
                             R"({"time":1,"minute":1,"load":100.1,"temperatures":{}})",
                             R"({"time":1,"minute":1,"temperatures":{"CPU Hottest":50}})",
                             R"({"time":1,"minute":1,"temperatures":{},"fans":7})",
                             R"({"time":1,"minute":1,"temperatures":{},"fans":[{}]})", "\xFF"}) {
        EXPECT_EQ(replay("max", tick(1, "") + "\n" + line + "\n" + tick(2, "")),
                  ExitStatus::refused);
        EXPECT_TRUE(errors.starts_with("tervalectl: standard input, line 3: ")) << errors;
        EXPECT_EQ(std::ranges::count(output, '\n'), 1) << "what came before stands";
    }
}

TEST_F(ReplayTest, ReadsLinesHoweverTheyEnd) {
    std::string trace = tick(1, "") + tick(2, "");
    trace.insert(trace.find('\n'), "\r");
    trace.pop_back();
    ASSERT_EQ(replay("max", trace), ExitStatus::done);
    EXPECT_EQ(std::ranges::count(output, '\n'), 2);
}

TEST_F(ReplayTest, FollowsAScheduleOverItsEdge) {
    const Profile nights{UUID::random(), "Nights",
                         kind::Schedule{{{600, 601, action::Profile{byLoad.id}}}}};
    std::ofstream(folder.path / "p.json") << encode(std::vector{nights, byLoad});
    std::string later = tick(61, "", ",\"load\":50");
    later.replace(later.find("600"), 3, "601");
    ASSERT_EQ(replay("profile Nights", tick(1, "", ",\"load\":50") + later), ExitStatus::done);
    const std::size_t first = output.find(R"("needsLoad":true,"target":0.5,)");
    const std::size_t second = output.find(R"("needsLoad":false,"target":"automatic",)");
    EXPECT_LT(first, second);
    EXPECT_NE(second, std::string::npos) << output;
}

TEST_F(ReplayTest, RefusesASpeedThatIsNoNumber) {
    const Profile wild{UUID::random(), "Wild",
                       kind::Load{Curve{{{-1e308, -1e308}, {1e308, 1e308}}}}};
    std::ofstream(folder.path / "p.json") << encode(std::vector{wild});
    EXPECT_EQ(replay("profile Wild", tick(1, "", ",\"load\":50")), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: standard input, line 1: The speed comes to no number.\n");
}

TEST_F(ReplayTest, RefusesEndlessLines) {
    EXPECT_EQ(replay("max", std::string(17'000'000, ' ')), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: standard input, line 1: A line is longer than 16 MiB.\n");
}

TEST_F(ReplayTest, TakesWhatMonitorWrites) {
    ASSERT_EQ(run({"monitor", "--json", "--count", "2", "--interval", "0.01"}), ExitStatus::done);
    const std::string trace = output;
    ASSERT_EQ(replay("profile Rising", trace), ExitStatus::done);
    EXPECT_EQ(std::ranges::count(output, '\n'), 2);
}

TEST_F(ReplayTest, RefusesAProfileThatIsNotInTheFile) {
    EXPECT_EQ(replay("profile Quiet", ""), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: There is no profile 'Quiet'.\n");
}
