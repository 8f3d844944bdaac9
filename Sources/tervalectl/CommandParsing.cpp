#include "tervalectl/CommandParsing.h"

#include "tervalectl/ChartFile.h"
#include "tervalectl/NumberParsing.h"

#include <string>
#include <utility>

namespace tervale::ctl {

namespace {

constexpr double shortestInterval = 0.01;
constexpr double longestWait = 24 * 60 * 60;

std::string takeFile(std::string_view command, Arguments& arguments) {
    if (arguments.isEmpty())
        throw missing(command, "FILE");
    std::string file = arguments.takePath();
    if (file.empty())
        throw misuse("FILE is empty.");
    return file;
}

ProfileReference takeProfile(std::string_view command, Arguments& arguments) {
    std::string name = arguments.takeAll();
    if (name.empty())
        throw missing(command, "NAME");
    return {std::move(name)};
}

std::optional<std::int64_t> takeCount(const Arguments& arguments) {
    if (!arguments.has("count"))
        return std::nullopt;
    const auto count = parseWholeNumber(arguments.value("count"));
    if (!count)
        throw misuse("--count takes a whole number, not '" + arguments.value("count") + "'.");
    return count;
}

ActionArgument takeAction(std::string_view command, Arguments& arguments) {
    if (arguments.isEmpty())
        throw missing(command, "ACTION");
    const std::string text = arguments.takeAll();
    if (text == "profile")
        throw missing(command, "the profile's NAME");
    const auto action = parseAction(text);
    if (!action)
        throw misuse("'" + text + "' is no action: automatic, max, N%, or profile NAME.");
    return *action;
}

std::optional<std::string> takeChart(const Arguments& arguments) {
    if (!arguments.has("chart"))
        return std::nullopt;
    std::string file = arguments.path("chart");
    const ChartKind kind = chartKind(file);
    if (kind == ChartKind::unknown)
        throw misuse("--chart takes a file that ends in .svg or .png, or '-', not '" +
                     arguments.value("chart") + "'.");
    if (kind == ChartKind::text && arguments.has("json"))
        throw misuse("--json and --chart - cannot both go to standard output.");
    return file;
}

std::string groupNames() {
    std::string names;
    for (const SensorGroup group : SensorGroup::allCases)
        (names += names.empty() ? "" : ", ") += group.rawValue();
    return names;
}

} // namespace

double parseSeconds(const Arguments& arguments, std::string_view option, double usual) {
    if (!arguments.has(option))
        return usual;
    const auto value = parseDuration(arguments.value(option));
    if (!value || *value > longestWait)
        throw misuse("--" + std::string(option) + " takes seconds above 0 up to a day, not '" +
                     arguments.value(option) + "'.");
    return *value;
}

Sensors parseSensors(Arguments& arguments) {
    Sensors sensors;
    if (arguments.has("group")) {
        const QString name = QString::fromStdString(arguments.value("group")).toLower();
        sensors.group = SensorGroup::fromRawValue(name.toStdString());
        if (!sensors.group)
            throw misuse("There is no group '" + arguments.value("group") + "': " + groupNames() +
                         ".");
    }
    sensors.filter = arguments.takeAll();
    return sensors;
}

Monitor parseMonitor(Arguments& arguments) {
    Monitor monitor;
    monitor.interval = parseSeconds(arguments, "interval", monitor.interval);
    if (monitor.interval < shortestInterval)
        throw misuse("--interval takes no less than 0.01 seconds.");
    monitor.count = takeCount(arguments);
    monitor.chart = takeChart(arguments);
    return monitor;
}

State parseState(Arguments& arguments) {
    const State state{arguments.has("follow"), takeCount(arguments)};
    if (state.count && !state.follow)
        throw misuse("--count goes with --follow.");
    return state;
}

Select parseSelect(Arguments& arguments) {
    return {takeAction("select", arguments)};
}

Timer parseTimer(Arguments& arguments) {
    constexpr std::string_view command = "timer";
    if (arguments.isEmpty())
        throw missing(command, "ACTION");
    const std::string text = arguments.takeLast();
    const auto duration = parseDuration(text);
    if (!duration && (arguments.isEmpty() || arguments.first() == "profile"))
        throw missing(command, "DURATION");
    if (!duration)
        throw misuse("'" + text + "' is no DURATION: seconds, or a time such as 90s, 15m, 1h30m.");
    return {takeAction(command, arguments), *duration};
}

LaunchAtLogin parseLaunchAtLogin(Arguments& arguments) {
    if (arguments.isEmpty())
        throw missing("launch-at-login", "'on' or 'off'");
    const std::string word = arguments.take();
    if (word != "on" && word != "off")
        throw misuse("'" + word + "' is neither 'on' nor 'off'.");
    return {word == "on"};
}

ExportProfiles parseExport(Arguments& arguments) {
    return arguments.isEmpty() ? ExportProfiles{}
                               : ExportProfiles{takeFile("profiles export", arguments)};
}

ImportProfiles parseImport(Arguments& arguments) {
    return {takeFile("profiles import", arguments), arguments.has("merge")};
}

ValidateProfiles parseValidate(Arguments& arguments) {
    return {takeFile("profiles validate", arguments)};
}

ShowProfile parseShow(Arguments& arguments) {
    return {takeProfile("profiles show", arguments)};
}

RemoveProfile parseRemove(Arguments& arguments) {
    return {takeProfile("profiles remove", arguments)};
}

Replay parseReplay(Arguments& arguments) {
    for (const char* required : {"profiles", "selection"}) {
        if (arguments.value(required).empty())
            throw missing("replay", "--" + std::string(required));
    }
    const auto selection = parseActionOrJSON(arguments.value("selection"));
    if (!selection)
        throw misuse("'" + arguments.value("selection") +
                     "' is no action: automatic, max, N%, 'profile NAME' in quotes, or JSON.");
    Replay replay{.profiles = arguments.path("profiles"), .selection = *selection};
    if (!arguments.isEmpty())
        replay.trace = takeFile("replay", arguments);
    replay.chart = takeChart(arguments);
    if (replay.profiles == "-" && replay.trace == "-")
        throw misuse("Profiles and TRACE cannot both come from standard input.");
    return replay;
}

} // namespace tervale::ctl
