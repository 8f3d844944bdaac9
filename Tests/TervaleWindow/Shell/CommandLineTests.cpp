#include "TervaleWindow/Shell/CommandLine.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

CommandLine::Request parse(const QStringList& arguments,
                           CommandLine::System system = CommandLine::System::other) {
    return CommandLine::parse(QStringList{"tervale-window"} + arguments, system);
}

QString refusal(const QStringList& arguments) {
    const auto request = parse(arguments);
    const auto* refused = std::get_if<CommandLine::Refuse>(&request);
    return refused ? refused->line : QString();
}

} // namespace

TEST(CommandLine, OpensTheOverviewOnThisMachineWithoutArguments) {
    EXPECT_EQ(parse({}), CommandLine::Request(CommandLine::OpenWindow{}));
}

TEST(CommandLine, TakesThePaneInAnyCase) {
    const CommandLine::OpenWindow expected{machineChoice::Simulated{}, Pane::settings};
    EXPECT_EQ(parse({"--simulate", "--pane", "settings"}), CommandLine::Request(expected));
    EXPECT_EQ(parse({"--pane=Settings", "--simulate"}), CommandLine::Request(expected));
}

TEST(CommandLine, TakesTheSocketThatServesTheController) {
    const CommandLine::OpenWindow expected{machineChoice::Remote{"/run/mac"}, Pane::overview};
    EXPECT_EQ(parse({"--socket", "/run/mac"}), CommandLine::Request(expected));
    EXPECT_TRUE(refusal({"--socket", ""}).contains("socket"));
    EXPECT_TRUE(refusal({"--socket", "/run/mac", "--simulate"}).contains("socket"));
}

TEST(CommandLine, ShowsHelpAndVersion) {
    EXPECT_EQ(parse({"--help"}), CommandLine::Request(CommandLine::ShowHelp{}));
    EXPECT_EQ(parse({"--version"}), CommandLine::Request(CommandLine::ShowVersion{}));
    for (const char* option : {"--simulate", "--socket", "--pane", "--help", "--version"})
        EXPECT_TRUE(CommandLine::help().contains(option)) << option;
}

TEST(CommandLine, RefusesEverythingElseAndNamesIt) {
    EXPECT_TRUE(refusal({"--frobnicate"}).contains("frobnicate"));
    EXPECT_TRUE(refusal({"document"}).contains("document"));
    EXPECT_TRUE(refusal({"--pane", "Kitchen"}).contains("Kitchen"));
    EXPECT_TRUE(refusal({"--pane"}).contains("pane"));
    EXPECT_TRUE(refusal({"-s"}).contains("s"));
    EXPECT_TRUE(refusal({"--simulate=yes"}).contains("simulate"));
}

TEST(CommandLine, RefusesInOneLine) {
    for (const QStringList& arguments :
         {QStringList{"--frobnicate"}, {"document"}, {"--pane", "Kitchen"}, {"--pane"}}) {
        EXPECT_FALSE(refusal(arguments).isEmpty());
        EXPECT_FALSE(refusal(arguments).contains('\n'));
    }
}

TEST(CommandLine, IgnoresOnAMacWhatTheSystemPasses) {
    const auto macOS = CommandLine::System::macOS;
    for (const QStringList& passed :
         std::vector<QStringList>{{"-psn_0_12345"},
                                  {"-AppleLanguages", "(de)"},
                                  {"-ApplePersistenceIgnoreState", "YES"},
                                  {"-NSDocumentRevisionsDebugMode", "YES"},
                                  {"-NSDocumentRevisionsDebugMode"}}) {
        EXPECT_EQ(parse(passed, macOS), CommandLine::Request(CommandLine::OpenWindow{}))
            << passed.join(' ').toStdString();
        const CommandLine::OpenWindow simulated{machineChoice::Simulated{}, Pane::settings};
        EXPECT_EQ(
            parse(QStringList{"--pane", "Settings"} + passed + QStringList{"--simulate"}, macOS),
            CommandLine::Request(simulated));
        EXPECT_FALSE(refusal(passed).isEmpty());
    }
}

TEST(CommandLine, StillRefusesOnAMacWhatNobodyKnows) {
    for (const QStringList& arguments : std::vector<QStringList>{
             {"--frobnicate"}, {"document"}, {"-s"}, {"-AppleLanguages", "(de)", "(fr)"}}) {
        const auto request = parse(arguments, CommandLine::System::macOS);
        EXPECT_TRUE(std::holds_alternative<CommandLine::Refuse>(request))
            << arguments.join(' ').toStdString();
    }
}

TEST(Pane, HasTheOrderAndTitlesOfTheSidebar) {
    QStringList titles;
    for (const Pane pane : allPanes)
        titles << title(pane);
    EXPECT_EQ(titles, (QStringList{"Overview", "Sensors", "Profiles", "Settings"}));
}

TEST(Pane, HasItsSymbol) {
    QStringList names;
    for (const Pane pane : allPanes)
        names << symbolName(symbol(pane));
    EXPECT_EQ(names,
              (QStringList{"fan", "thermometer.medium", "slider.horizontal.3", "gearshape"}));
}
