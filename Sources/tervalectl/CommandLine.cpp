#include "tervalectl/CommandLine.h"

#include "Base/Precondition.h"
#include "tervalectl/CommandTable.h"
#include "tervalectl/Quantities.h"
#include "tervalectl/Words.h"

namespace tervale::ctl {

namespace {

constexpr double shortestInterval = 0.01;
constexpr double longestWait = 24 * 60 * 60;

const CommandDescription& takeCommand(Words& words) {
    std::string name = words.take();
    if (const std::string members = help(std::string_view(name)); !members.empty()) {
        if (words.isEmpty())
            throw misuse("'" + name + "' needs a word more.");
        name += ' ' + words.take();
    } else if (name.find(' ') != std::string::npos) {
        throw misuse("There is no command '" + name + "'.");
    }
    if (const auto* command = findCommand(name))
        return *command;
    throw misuse("There is no command '" + name + "'.");
}

std::string takeHelp(Words& words) {
    if (words.isEmpty())
        return help();
    if (std::string members = help(std::string_view(words.first()));
        !members.empty() && words.count() == 1)
        return members;
    return help(takeCommand(words));
}

void refuseOptionsNotTaken(const CommandDescription& command, const Words& words) {
    for (const OptionDescription& option : allOptions()) {
        if (words.has(option.name) && !takes(command, option.name))
            throw misuse("'" + std::string(command.name) + "' takes no --" +
                         std::string(option.name) + ".");
    }
}

std::string takeArgument(Words& words, const char* called) {
    if (words.isEmpty())
        throw misuse(std::string(called) + " is missing.");
    return words.take();
}

std::string takeFile(Words& words) {
    if (words.isEmpty())
        throw misuse("FILE is missing.");
    std::string file = words.takePath();
    if (file.empty())
        throw misuse("FILE is empty.");
    return file;
}

double seconds(const Words& words, std::string_view option, double usual) {
    if (!words.has(option))
        return usual;
    const auto value = quantities::duration(words.text(option));
    if (!value || *value > longestWait)
        throw misuse("--" + std::string(option) + " takes seconds above 0 up to a day, not '" +
                     words.text(option) + "'.");
    return *value;
}

ActionText takeAction(Words& words) {
    if (words.isEmpty())
        throw misuse("ACTION is missing.");
    const std::string text = words.takeAll();
    const auto action = parseAction(text);
    if (!action)
        throw misuse("'" + text + "' is no action: automatic, max, N%, or profile NAME.");
    return *action;
}

Sensors takeSensors(Words& words) {
    Sensors sensors;
    if (words.has("group")) {
        const QString name = QString::fromStdString(words.text("group")).toLower();
        sensors.group = SensorGroup::fromRawValue(name.toStdString());
        if (!sensors.group)
            throw misuse("There is no group '" + words.text("group") +
                         "': cpu, gpu, memory, ssd, power, other.");
    }
    sensors.filter = words.takeAll();
    return sensors;
}

Monitor takeMonitor(const Words& words) {
    Monitor monitor;
    monitor.interval = seconds(words, "interval", monitor.interval);
    if (monitor.interval < shortestInterval)
        throw misuse("--interval takes no less than 0.01 seconds.");
    if (words.has("count")) {
        monitor.count = quantities::whole(words.text("count"));
        if (!monitor.count)
            throw misuse("--count takes a whole number, not '" + words.text("count") + "'.");
    }
    return monitor;
}

Timer takeTimer(Words& words) {
    if (words.isEmpty())
        throw misuse("ACTION is missing.");
    const std::string text = words.takeLast();
    const auto duration = quantities::duration(text);
    if (!duration)
        throw misuse("'" + text + "' is no DURATION: seconds, or such as 90s, 15m, 1h30m.");
    return {takeAction(words), *duration};
}

LaunchAtLogin takeLaunchAtLogin(Words& words) {
    const std::string word = takeArgument(words, "'on' or 'off'");
    if (word != "on" && word != "off")
        throw misuse("'" + word + "' is neither 'on' nor 'off'.");
    return {word == "on"};
}

Replay takeReplay(Words& words) {
    for (const char* required : {"profiles", "selection"}) {
        if (words.text(required).empty())
            throw misuse("'replay' needs --" + std::string(required) + ".");
    }
    const auto selection = parseActionOrJSON(words.text("selection"));
    if (!selection)
        throw misuse("'" + words.text("selection") +
                     "' is no action: automatic, max, N%, 'profile NAME' in quotes, or JSON.");
    Replay replay{words.path("profiles"), *selection};
    if (!words.isEmpty())
        replay.trace = takeFile(words);
    if (replay.profiles == "-" && replay.trace == "-")
        throw misuse("Profiles and TRACE cannot both come from standard input.");
    return replay;
}

Command takeArguments(std::string_view name, Words& words) {
    if (name == "fans")
        return Fans{};
    if (name == "sensors")
        return takeSensors(words);
    if (name == "monitor")
        return takeMonitor(words);
    if (name == "state")
        return State{};
    if (name == "select")
        return Select{takeAction(words)};
    if (name == "timer")
        return takeTimer(words);
    if (name == "cancel-timer")
        return CancelTimer{};
    if (name == "launch-at-login")
        return takeLaunchAtLogin(words);
    if (name == "check-for-updates")
        return CheckForUpdates{};
    if (name == "profiles list")
        return ListProfiles{};
    if (name == "profiles export")
        return words.isEmpty() ? ExportProfiles{} : ExportProfiles{takeFile(words)};
    if (name == "profiles import")
        return ImportProfiles{takeFile(words)};
    if (name == "profiles validate")
        return ValidateProfiles{takeFile(words)};
    precondition(name == "replay", "every command's arguments are taken");
    return takeReplay(words);
}

MachineChoice takeMachine(const Words& words) {
    std::optional<std::string> socket;
    if (words.has("socket"))
        socket = words.path("socket");
    const auto machine = chooseMachine(words.has("simulate"), socket);
    if (const auto* fault = std::get_if<MachineChoiceFault>(&machine))
        throw misuse(fault->line);
    return std::get<MachineChoice>(machine);
}

CommandLine::Run takeRun(const CommandDescription& description, Words& words) {
    refuseOptionsNotTaken(description, words);
    CommandLine::Run run{takeArguments(description.name, words)};
    if (!words.isEmpty())
        throw misuse("Unexpected argument '" + words.first() + "'.");
    run.json = words.has("json");
    run.timeout = seconds(words, "timeout", run.timeout);
    run.machine = takeMachine(words);
    return run;
}

} // namespace

CommandLine::Request CommandLine::parse(const QStringList& arguments) {
    try {
        Words words(arguments);
        if (words.has("version"))
            return ShowVersion{};
        if (words.has("help"))
            return Print{takeHelp(words)};
        if (words.isEmpty())
            throw misuse("A command is missing.");
        if (words.first() == "help") {
            words.take();
            return Print{takeHelp(words)};
        }
        const CommandDescription& command = takeCommand(words);
        return takeRun(command, words);
    } catch (const Failure& failure) {
        return Refuse{failure.line};
    }
}

} // namespace tervale::ctl
