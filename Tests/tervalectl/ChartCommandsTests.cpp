#include "JSON/JSON.h"
#include "Profiles/Profile.h"
#include "Support/TemporaryFolder.h"
#include "tervalectl/CommandRunner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

using namespace tervale;

namespace {

const Profile charted{*UUID::parse("00000000-0000-0000-0000-000000000001"), "Rising",
                      kind::Temperature{TemperatureInput::averageOf(SensorGroup::gpu),
                                        Curve{{{40, 0.0}, {80, 1.0}}}}};

class ChartCommands : public testing::Test, protected CommandRunner {
  protected:
    ChartCommands() {
        std::ofstream(folder.path / "p.json") << encode(std::vector{charted});
        drawPNG = [this](const std::string& svg) {
            drawn = svg;
            return std::string("picture");
        };
    }

    QString path(const char* name) const { return QString::fromStdString(folder.path / name); }
    std::string read(const char* name) const {
        std::ifstream file(folder.path / name);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    ExitStatus replay(const QString& chart, const QStringList& options = {}) {
        std::string trace;
        for (int i = 0; i < 30; ++i)
            trace += "{\"time\":" + std::to_string(36000 + i) +
                     R"(,"minute":600,"temperatures":{"GPU average":)" + std::to_string(45 + i) +
                     R"(,"CPU hottest":)" + std::to_string(70 + i) + "}}\n";
        return run(QStringList{"replay", "--profiles", path("p.json"), "--selection",
                               "profile Rising", "--chart", chart} +
                       options,
                   trace);
    }

    TemporaryFolder folder;
    std::string drawn;
};

} // namespace

TEST_F(ChartCommands, ReplayWritesAPictureBesideItsLines) {
    ASSERT_EQ(replay(path("c.svg")), ExitStatus::done) << errors;
    const std::string svg = read("c.svg");
    EXPECT_TRUE(svg.starts_with("<svg ")) << svg;
    for (const char* words :
         {">Rising, dry run<", ">GPU average<", ">CPU hottest<", ">Target<", ">Safety<"})
        EXPECT_NE(svg.find(words), std::string::npos) << words;
    EXPECT_EQ(std::ranges::count(output, '\n'), 31);
    ASSERT_EQ(replay(path("C.SVG"), {"--json"}), ExitStatus::done) << errors;
    EXPECT_EQ(read("C.SVG"), svg);
    EXPECT_EQ(std::ranges::count(output, '\n'), 30);
}

TEST_F(ChartCommands, ReplayHasTheWindowDrawPixels) {
    ASSERT_EQ(replay(path("c.png")), ExitStatus::done) << errors;
    EXPECT_EQ(read("c.png"), "picture");
    EXPECT_TRUE(drawn.starts_with("<svg "));
    drawPNG = [](const std::string&) -> std::string { throw refusal("No window."); };
    EXPECT_EQ(replay(path("c.png")), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: No window.\n");
    EXPECT_EQ(read("c.png"), "picture") << "the old picture stays";
}

TEST_F(ChartCommands, ReplayDrawsInTheTerminalInPlaceOfItsLines) {
    ASSERT_EQ(replay("-"), ExitStatus::done) << errors;
    EXPECT_TRUE(output.starts_with("Rising, dry run\n")) << output;
    EXPECT_EQ(output.find("TARGET"), std::string::npos);
    textStyle.unicode = false;
    ASSERT_EQ(replay("-"), ExitStatus::done);
    EXPECT_NE(output.find("* GPU average"), std::string::npos) << output;
}

TEST_F(ChartCommands, MonitorWritesAPictureWhenItEnds) {
    ASSERT_EQ(run({"monitor", "--count", "3", "--interval", "0.01", "--chart", path("m.svg")}),
              ExitStatus::done)
        << errors;
    EXPECT_EQ(std::ranges::count(output, '\n'), 4);
    const std::string svg = read("m.svg");
    for (const char* words : {">Monitor<", ">CPU hottest<", ">Fans<", ">Load<"})
        EXPECT_NE(svg.find(words), std::string::npos) << words;
}

TEST_F(ChartCommands, MonitorTellsAtOnceThatItCannotWriteThePicture) {
    const auto start = [this](const QString& chart) {
        // Would go on for an hour.
        return run({"monitor", "--count", "2", "--interval", "3600", "--chart", chart});
    };
    EXPECT_EQ(start(path("no such folder/m.svg")), ExitStatus::refused);
    EXPECT_TRUE(errors.starts_with("tervalectl: Cannot write ")) << errors;
    EXPECT_EQ(output, "");
    std::filesystem::create_directory(folder.path / "folder.svg");
    EXPECT_EQ(start(path("folder.svg")), ExitStatus::refused);
    EXPECT_EQ(output, "");
    drawPNG = [](const std::string&) -> std::string { throw refusal("No window."); };
    EXPECT_EQ(start(path("m.png")), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: No window.\n");
    EXPECT_EQ(output, "");
}

TEST_F(ChartCommands, MonitorLeavesAnOldPictureUntilThereIsAnother) {
    std::ofstream(folder.path / "m.svg") << "the old one";
    mac.setService(service::Absent{});
    EXPECT_EQ(run({"monitor", "--count", "1", "--chart", path("m.svg")}), ExitStatus::refused);
    EXPECT_EQ(read("m.svg"), "the old one");
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path))
        files.push_back(entry.path().filename());
    std::ranges::sort(files);
    EXPECT_EQ(files, (std::vector<std::string>{"m.svg", "p.json"})) << "nothing stays beside it";
}

TEST_F(ChartCommands, MonitorDrawsOverItsLastDrawingInATerminal) {
    const QStringList line{"monitor", "--count", "3", "--interval", "0.01", "--chart", "-"};
    ASSERT_EQ(run(line), ExitStatus::done);
    EXPECT_EQ(output.find('\x1b'), std::string::npos);
    EXPECT_EQ(output.find("Monitor"), output.rfind("Monitor")) << "once, at the end";
    const auto lines = std::ranges::count(output, '\n');
    textStyle.live = true;
    ASSERT_EQ(run(line), ExitStatus::done);
    const std::string over = "\x1b[" + std::to_string(lines) + "A\x1b[J";
    EXPECT_NE(output.find(over), output.rfind(over)) << "the second and the third";
    EXPECT_EQ(std::ranges::count(output, '\n'), 3 * lines);
}

TEST_F(ChartCommands, RefuseAChartThatIsNone) {
    const auto refusalOf = [](const QStringList& arguments) {
        const auto request = ctl::CommandLine::parse(QStringList{"tervalectl"} + arguments);
        const auto* refused = std::get_if<ctl::CommandLine::Refuse>(&request);
        return refused ? refused->line : "";
    };
    EXPECT_EQ(refusalOf({"monitor", "--chart", "c.gif"}),
              "--chart takes a file that ends in .svg or .png, or '-', not 'c.gif'.");
    EXPECT_NE(refusalOf({"monitor", "--chart", ".svg"}), "");
    EXPECT_EQ(refusalOf({"monitor", "--chart", "-", "--json"}),
              "--json and --chart - cannot both go to standard output.");
    EXPECT_EQ(refusalOf({"monitor", "--chart", "c.svg", "--json"}), "");
    EXPECT_EQ(refusalOf({"fans", "--chart", "c.svg"}), "'fans' takes no --chart.");
}
