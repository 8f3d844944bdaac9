#include "tervalectl/CommandLine.h"
#include "tervalectl/CommandTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace tervale;
using namespace tervale::ctl;

namespace {

CommandLine::Request parse(const QStringList& arguments) {
    return CommandLine::parse(QStringList{"tervalectl"} + arguments);
}

Command command(const QStringList& arguments) {
    const auto request = parse(arguments);
    return std::get<CommandLine::Run>(request).command;
}

std::string refusal(const QStringList& arguments) {
    const auto request = parse(arguments);
    const auto* refused = std::get_if<CommandLine::Refuse>(&request);
    return refused ? refused->line : "not refused";
}

QStringList wordsOf(const CommandDescription& description) {
    return QString::fromStdString(std::string(description.name)).split(' ');
}

} // namespace

TEST(CtlCommandLine, ReadsEveryCommand) {
    EXPECT_EQ(command({"fans"}), Command(Fans{}));
    EXPECT_EQ(command({"sensors"}), Command(Sensors{}));
    EXPECT_EQ(command({"sensors", "--group", "GPU", "tg", "0"}),
              Command(Sensors{SensorGroup(SensorGroup::gpu), "tg 0"}));
    EXPECT_EQ(command({"monitor", "--interval", "0.5", "--count=3"}), Command(Monitor{0.5, 3}));
    EXPECT_EQ(command({"state"}), Command(State{}));
    EXPECT_EQ(command({"select", "40%"}), Command(Select{Action(action::Fixed{0.4})}));
    EXPECT_EQ(command({"select", "profile", "Late", "night"}),
              Command(Select{ProfileReference{"Late night"}}));
    EXPECT_EQ(command({"timer", "profile", "Late", "night", "1h30m"}),
              Command(Timer{ProfileReference{"Late night"}, 5400}));
    EXPECT_EQ(command({"cancel-timer"}), Command(CancelTimer{}));
    EXPECT_EQ(command({"launch-at-login", "on"}), Command(LaunchAtLogin{true}));
    EXPECT_EQ(command({"launch-at-login", "off"}), Command(LaunchAtLogin{false}));
    EXPECT_EQ(command({"check-for-updates"}), Command(CheckForUpdates{}));
    EXPECT_EQ(command({"profiles", "list"}), Command(ListProfiles{}));
    EXPECT_EQ(command({"profiles", "export"}), Command(ExportProfiles{"-"}));
    EXPECT_EQ(command({"profiles", "export", "p.json"}), Command(ExportProfiles{"p.json"}));
    EXPECT_EQ(command({"profiles", "import", "-"}), Command(ImportProfiles{"-"}));
    EXPECT_EQ(command({"profiles", "validate", "p.json"}), Command(ValidateProfiles{"p.json"}));
    EXPECT_EQ(command({"replay", "--profiles", "p", "--selection", "max", "heat"}),
              Command(Replay{"p", Action(action::Fixed{1.0}), "heat"}));
}

TEST(CtlCommandLine, ReadsTheOptionsOfAllCommands) {
    const auto request = parse({"--json", "fans", "--socket", "/run/mac"});
    EXPECT_EQ(request, CommandLine::Request(
                           CommandLine::Run{Fans{}, true, 2, machineChoice::Remote{"/run/mac"}}));
    const auto other = parse({"state", "--timeout", "0.25", "--simulate"});
    EXPECT_EQ(other, CommandLine::Request(
                         CommandLine::Run{State{}, false, 0.25, machineChoice::Simulated{}}));
}

TEST(CtlCommandLine, HasHelpForTheProgramAndForEachCommand) {
    const auto general = parse({"--help"});
    for (const CommandDescription& description : allCommands()) {
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
    EXPECT_EQ(parse({"help", "fans"}), parse({"fans", "--help"}));
    EXPECT_EQ(parse({"--version"}), CommandLine::Request(CommandLine::ShowVersion{}));
}

TEST(CtlCommandLine, DescribesEveryCommandAndOptionOnce) {
    std::set<std::string_view> names;
    for (const CommandDescription& description : allCommands()) {
        EXPECT_TRUE(names.insert(description.name).second) << description.name;
        for (const std::string_view option : description.options)
            EXPECT_TRUE(std::ranges::any_of(allOptions(), [&](const OptionDescription& known) {
                return known.name == option;
            })) << option;
    }
}

TEST(CtlCommandLine, DescribesEveryOptionOnceAndForSomeCommand) {
    std::set<std::string_view> names;
    for (const OptionDescription& option : allOptions()) {
        EXPECT_TRUE(names.insert(option.name).second) << option.name;
        EXPECT_TRUE(option.name == "version" ||
                    std::ranges::any_of(allCommands(),
                                        [&](const CommandDescription& command) {
                                            return takes(command, option.name);
                                        }))
            << option.name;
    }
}

TEST(CtlCommandLine, RefusesWhatItDoesNotUnderstand) {
    EXPECT_EQ(refusal({}), "A command is missing.");
    EXPECT_EQ(refusal({"fan"}), "There is no command 'fan'.");
    EXPECT_EQ(refusal({"profiles"}), "'profiles' needs a word more.");
    EXPECT_EQ(refusal({"profiles", "burn"}), "There is no command 'profiles burn'.");
    EXPECT_EQ(refusal({"fans", "now"}), "Unexpected argument 'now'.");
    EXPECT_EQ(refusal({"fans", "--count", "1"}), "'fans' takes no --count.");
    EXPECT_EQ(refusal({"replay", "--simulate"}), "'replay' takes no --simulate.");
    EXPECT_EQ(refusal({"profiles list"}), "There is no command 'profiles list'.");
    EXPECT_EQ(refusal({"help", "fan"}), "There is no command 'fan'.");
    EXPECT_EQ(refusal({"sensors", "--group", "CPUs"}),
              "There is no group 'CPUs': cpu, gpu, memory, ssd, power, other.");
    EXPECT_EQ(refusal({"monitor", "--interval", "0.001"}),
              "--interval takes no less than 0.01 seconds.");
    EXPECT_EQ(refusal({"replay", "--profiles", "p", "--selection", "profile", "Quiet"}),
              "'profile' is no action: automatic, max, N%, 'profile NAME' in quotes, or JSON.");
    EXPECT_EQ(refusal({"monitor", "--interval", "0"}),
              "--interval takes seconds above 0 up to a day, not '0'.");
    EXPECT_EQ(refusal({"monitor", "--count", "-1"}), "--count takes a whole number, not '-1'.");
    EXPECT_EQ(refusal({"state", "--timeout", "2d"}),
              "--timeout takes seconds above 0 up to a day, not '2d'.");
    EXPECT_EQ(refusal({"select"}), "ACTION is missing.");
    EXPECT_EQ(refusal({"select", "fast"}),
              "'fast' is no action: automatic, max, N%, or profile NAME.");
    EXPECT_EQ(refusal({"timer", "5m"}), "ACTION is missing.");
    EXPECT_EQ(refusal({"timer", "max", "soon"}),
              "'soon' is no DURATION: seconds, or such as 90s, 15m, 1h30m.");
    EXPECT_EQ(refusal({"launch-at-login"}), "'on' or 'off' is missing.");
    EXPECT_EQ(refusal({"launch-at-login", "yes"}), "'yes' is neither 'on' nor 'off'.");
    EXPECT_EQ(refusal({"profiles", "import"}), "FILE is missing.");
    EXPECT_EQ(refusal({"profiles", "export", ""}), "FILE is empty.");
    EXPECT_EQ(refusal({"replay", "--selection", "max"}), "'replay' needs --profiles.");
    EXPECT_EQ(refusal({"replay", "--profiles", "p"}), "'replay' needs --selection.");
    EXPECT_EQ(refusal({"replay", "--profiles", "-", "--selection", "max"}),
              "Profiles and TRACE cannot both come from standard input.");
    EXPECT_EQ(refusal({"state", "--socket", ""}), "--socket takes a path.");
    EXPECT_EQ(refusal({"state", "--socket", "/run/mac", "--simulate"}),
              "--simulate and --socket exclude each other.");
    EXPECT_NE(refusal({"fans", "--frobnicate"}).find("frobnicate"), std::string::npos);
}
