#include "tervalectl/CommandLine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace tervale;
using namespace tervale::ctl;

namespace {

CommandLine::Request parse(const QStringList& arguments) {
    return CommandLine::parse(QStringList{"tervalectl"} + arguments);
}

Parameters parameters(const QStringList& arguments) {
    const auto request = parse(arguments);
    return std::get<CommandLine::Run>(request).parameters;
}

std::string refusalOf(const QStringList& arguments) {
    const auto request = parse(arguments);
    const auto* refused = std::get_if<CommandLine::Refuse>(&request);
    return refused ? refused->line : "not refused";
}

QStringList wordsOf(const Command& description) {
    return QString::fromStdString(std::string(description.name)).split(' ');
}

} // namespace

TEST(CtlCommandLine, ReadsEveryCommand) {
    EXPECT_EQ(parameters({"fans"}), Parameters(Fans{}));
    EXPECT_EQ(parameters({"sensors"}), Parameters(Sensors{}));
    EXPECT_EQ(parameters({"sensors", "--group", "GPU", "tg", "0"}),
              Parameters(Sensors{SensorGroup(SensorGroup::gpu), "tg 0"}));
    EXPECT_EQ(parameters({"monitor", "--interval", "0.5", "--count=3"}),
              Parameters(Monitor{0.5, 3}));
    EXPECT_EQ(parameters({"state"}), Parameters(State{}));
    EXPECT_EQ(parameters({"state", "--follow", "--count", "2"}), Parameters(State{true, 2}));
    EXPECT_EQ(parameters({"select", "40%"}), Parameters(Select{Action(action::Fixed{0.4})}));
    EXPECT_EQ(parameters({"select", "profile", "Late", "night"}),
              Parameters(Select{ProfileReference{"Late night"}}));
    EXPECT_EQ(parameters({"timer", "profile", "Late", "night", "1h30m"}),
              Parameters(Timer{ProfileReference{"Late night"}, 5400}));
    EXPECT_EQ(parameters({"cancel-timer"}), Parameters(CancelTimer{}));
    EXPECT_EQ(parameters({"launch-at-login", "on"}), Parameters(LaunchAtLogin{true}));
    EXPECT_EQ(parameters({"launch-at-login", "off"}), Parameters(LaunchAtLogin{false}));
    EXPECT_EQ(parameters({"check-for-updates"}), Parameters(CheckForUpdates{}));
    EXPECT_EQ(parameters({"profiles", "list"}), Parameters(ListProfiles{}));
    EXPECT_EQ(parameters({"profiles", "export"}), Parameters(ExportProfiles{"-"}));
    EXPECT_EQ(parameters({"profiles", "export", "p.json"}), Parameters(ExportProfiles{"p.json"}));
    EXPECT_EQ(parameters({"profiles", "import", "-"}), Parameters(ImportProfiles{"-"}));
    EXPECT_EQ(parameters({"profiles", "import", "--merge", "p"}),
              Parameters(ImportProfiles{"p", true}));
    EXPECT_EQ(parameters({"profiles", "show", "Late", "night"}),
              Parameters(ShowProfile{{"Late night"}}));
    EXPECT_EQ(parameters({"profiles", "remove", "Quiet"}), Parameters(RemoveProfile{{"Quiet"}}));
    EXPECT_EQ(parameters({"profiles", "validate", "p.json"}),
              Parameters(ValidateProfiles{"p.json"}));
    EXPECT_EQ(parameters({"replay", "--profiles", "p", "--selection", "max", "heat"}),
              Parameters(Replay{"p", Action(action::Fixed{1.0}), "heat"}));
}

TEST(CtlCommandLine, ReadsTheOptionsOfAllCommands) {
    const auto request = parse({"--json", "fans", "--socket", "/run/mac"});
    EXPECT_EQ(request, CommandLine::Request(CommandLine::Run{findCommand("fans"), Fans{}, true, 2,
                                                             machineChoice::Remote{"/run/mac"}}));
    const auto other = parse({"state", "--timeout", "0.25", "--simulate"});
    EXPECT_EQ(other, CommandLine::Request(CommandLine::Run{findCommand("state"), State{}, false,
                                                           0.25, machineChoice::Simulated{}}));
}

TEST(CtlCommandLine, HasHelpForTheProgramAndForEachCommand) {
    const auto general = parse({"--help"});
    for (const Command& description : allCommands()) {
        EXPECT_NE(std::get<CommandLine::Print>(general).text.find(description.name),
                  std::string::npos);
        const auto request = parse(wordsOf(description) << "--help");
        const std::string& text = std::get<CommandLine::Print>(request).text;
        EXPECT_EQ(text.find("Usage: tervalectl " + std::string(description.name)), 0U);
        for (const std::string_view option : description.options)
            EXPECT_NE(text.find("--" + std::string(option)), std::string::npos) << option;
    }
    const auto group = parse({"profiles", "--help"});
    EXPECT_NE(std::get<CommandLine::Print>(group).text.find("profiles import FILE"),
              std::string::npos);
    EXPECT_EQ(parse({"help", "profiles"}), group);
    EXPECT_EQ(parse({"help"}), parse({"--help"}));
    EXPECT_EQ(parse({"-h"}), parse({"--help"}));
    EXPECT_EQ(parse({"fans", "-h"}), parse({"fans", "--help"}));
    EXPECT_EQ(parse({"help", "fans"}), parse({"fans", "--help"}));
    EXPECT_EQ(parse({"--version"}), CommandLine::Request(CommandLine::ShowVersion{}));
}

TEST(CtlCommandLine, DescribesEveryCommandAndOptionOnce) {
    std::set<std::string_view> names;
    for (const Command& description : allCommands()) {
        EXPECT_TRUE(names.insert(description.name).second) << description.name;
        for (const std::string_view option : description.options)
            EXPECT_TRUE(std::ranges::any_of(allOptions(), [&](const Option& known) {
                return known.name == option;
            })) << option;
    }
}

TEST(CtlCommandLine, DescribesEveryOptionOnceAndForSomeCommand) {
    std::set<std::string_view> names;
    for (const Option& option : allOptions()) {
        EXPECT_TRUE(names.insert(option.name).second) << option.name;
        EXPECT_TRUE(
            option.name == "version" ||
            std::ranges::any_of(
                allCommands(), [&](const Command& command) { return takes(command, option.name); }))
            << option.name;
    }
}

TEST(CtlCommandLine, RefusesWhatItDoesNotUnderstand) {
    EXPECT_EQ(refusalOf({}), "A command is missing.");
    EXPECT_EQ(refusalOf({"fan"}), "There is no command 'fan'.");
    EXPECT_EQ(refusalOf({"profiles"}),
              "profiles: COMMAND is missing: list, export, import, show, remove, validate.");
    EXPECT_EQ(refusalOf({"profiles", "burn"}), "There is no command 'profiles burn'.");
    EXPECT_EQ(refusalOf({"fans", "now"}), "Unexpected argument 'now'.");
    EXPECT_EQ(refusalOf({"fans", "--count", "1"}), "'fans' takes no --count.");
    EXPECT_EQ(refusalOf({"replay", "--simulate"}), "'replay' takes no --simulate.");
    EXPECT_EQ(refusalOf({"profiles list"}), "There is no command 'profiles list'.");
    EXPECT_EQ(refusalOf({"help", "fan"}), "There is no command 'fan'.");
    EXPECT_EQ(refusalOf({"sensors", "--group", "CPUs"}),
              "There is no group 'CPUs': cpu, gpu, memory, ssd, power, other.");
    EXPECT_EQ(refusalOf({"monitor", "--interval", "0.001"}),
              "--interval takes no less than 0.01 seconds.");
    EXPECT_EQ(refusalOf({"replay", "--profiles", "p", "--selection", "profile", "Quiet"}),
              "'profile' is no action: automatic, max, N%, 'profile NAME' in quotes, or JSON.");
    EXPECT_EQ(refusalOf({"monitor", "--interval", "0"}),
              "--interval takes seconds above 0 up to a day, not '0'.");
    EXPECT_EQ(refusalOf({"monitor", "--count", "-1"}), "--count takes a whole number, not '-1'.");
    EXPECT_EQ(refusalOf({"state", "--timeout", "2d"}),
              "--timeout takes seconds above 0 up to a day, not '2d'.");
    EXPECT_EQ(refusalOf({"select"}), "select: ACTION is missing.");
    EXPECT_EQ(refusalOf({"select", "profile"}), "select: the profile's NAME is missing.");
    EXPECT_EQ(refusalOf({"select", "fast"}),
              "'fast' is no action: automatic, max, N%, or profile NAME.");
    EXPECT_EQ(refusalOf({"timer"}), "timer: ACTION is missing.");
    EXPECT_EQ(refusalOf({"timer", "5m"}), "timer: ACTION is missing.");
    EXPECT_EQ(refusalOf({"timer", "max"}), "timer: DURATION is missing.");
    EXPECT_EQ(refusalOf({"timer", "profile", "Late", "night"}), "timer: DURATION is missing.");
    EXPECT_EQ(refusalOf({"timer", "profile", "5m"}), "timer: the profile's NAME is missing.");
    EXPECT_EQ(refusalOf({"timer", "max", "soon"}),
              "'soon' is no DURATION: seconds, or a time such as 90s, 15m, 1h30m.");
    EXPECT_EQ(refusalOf({"launch-at-login"}), "launch-at-login: 'on' or 'off' is missing.");
    EXPECT_EQ(refusalOf({"launch-at-login", "yes"}), "'yes' is neither 'on' nor 'off'.");
    EXPECT_EQ(refusalOf({"profiles", "import"}), "profiles import: FILE is missing.");
    EXPECT_EQ(refusalOf({"profiles", "validate"}), "profiles validate: FILE is missing.");
    EXPECT_EQ(refusalOf({"profiles", "show"}), "profiles show: NAME is missing.");
    EXPECT_EQ(refusalOf({"profiles", "remove", ""}), "profiles remove: NAME is missing.");
    EXPECT_EQ(refusalOf({"state", "--count", "2"}), "--count goes with --follow.");
    EXPECT_EQ(refusalOf({"profiles", "export", ""}), "FILE is empty.");
    EXPECT_EQ(refusalOf({"replay", "--selection", "max"}), "replay: --profiles is missing.");
    EXPECT_EQ(refusalOf({"replay", "--profiles", "p"}), "replay: --selection is missing.");
    EXPECT_EQ(refusalOf({"replay", "--profiles", "-", "--selection", "max"}),
              "Profiles and TRACE cannot both come from standard input.");
    EXPECT_EQ(refusalOf({"state", "--socket", ""}), "--socket takes a path.");
    EXPECT_EQ(refusalOf({"state", "--socket", "/run/mac", "--simulate"}),
              "--simulate and --socket exclude each other.");
    EXPECT_NE(refusalOf({"fans", "--frobnicate"}).find("frobnicate"), std::string::npos);
}
