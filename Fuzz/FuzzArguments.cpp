#include "Base/Precondition.h"
#include "Base/Terminal.h"
#include "FuzzedBytes.h"
#include "tervale-agent/AgentCommandLine.h"
#include "tervale-simulator/SimulatorCommandLine.h"
#include "tervalectl/CommandLine.h"
#include "tervalectl/NumberParsing.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <string>

using namespace tervale;

namespace {

/// Such words as programs take, and rubbish.
QString someWord(FuzzedBytes& input) {
    static constexpr std::array words{
        "fans",       "sensors",    "monitor",    "doctor",    "agent",       "state",
        "select",     "timer",      "profiles",   "list",      "export",      "import",
        "validate",   "show",       "remove",     "replay",    "help",        "automatic",
        "max",        "profile",    "on",         "40%",       "15m",         "1h30m",
        "--json",     "--help",     "-h",         "--version", "--follow",    "--merge",
        "--simulate", "--dry-run",  "--",         "-",         "--count",     "--timeout",
        "--interval", "--group",    "--profiles", "--socket",  "--speed",     "--seed",
        "--fault",    "--scenario", "--fans",     "--sensors", "--log-level", "--selection"};
    const std::size_t choice = input.below(words.size() + 20);
    if (choice < words.size()) {
        QString word = QString::fromLatin1(words[choice]);
        if (word.startsWith(QStringLiteral("--")) && input.below(3) == 0)
            word += u'=' + QString::fromStdString(input.text(12));
        return word;
    }
    return QString::fromStdString(input.text(24));
}

/// What is told of wrong arguments is one line that no terminal obeys.
void checkRefusal(const std::string& line) {
    precondition(!line.empty(), "a refusal without a reason");
    const std::string told = complaint("program", line);
    precondition(told.ends_with('\n') && std::ranges::count(told, '\n') == 1, "not one line");
    precondition(std::ranges::none_of(told.substr(0, told.size() - 1),
                                      [](char byte) {
                                          return static_cast<unsigned char>(byte) < 0x20U ||
                                                 byte == '\x7F';
                                      }),
                 "a terminal would obey this");
    precondition(printable(told.substr(0, told.size() - 1)) == told.substr(0, told.size() - 1),
                 "made printable twice, it is another text");
}

bool isWithinADay(double seconds) {
    return seconds > 0 && seconds <= 24 * 60 * 60;
}

struct CheckParameters {
    void operator()(const ctl::Monitor& monitor) const {
        precondition(monitor.interval >= 0.01 && isWithinADay(monitor.interval), "no interval");
        precondition(!monitor.count || *monitor.count >= 0, "fewer lines than none");
    }
    void operator()(const ctl::State& state) const {
        precondition(!state.count || (state.follow && *state.count >= 0), "lines of what?");
    }
    void operator()(const ctl::Timer& timer) const {
        precondition(timer.duration > 0 && timer.duration <= 1e9, "no duration");
        checkAction(timer.action);
    }
    void operator()(const ctl::Select& select) const { checkAction(select.action); }
    void operator()(const ctl::ImportProfiles& import) const { checkFile(import.file); }
    void operator()(const ctl::ExportProfiles& exported) const { checkFile(exported.file); }
    void operator()(const ctl::ValidateProfiles& validate) const { checkFile(validate.file); }
    void operator()(const ctl::ShowProfile& show) const { checkProfile(show.profile); }
    void operator()(const ctl::RemoveProfile& remove) const { checkProfile(remove.profile); }
    void operator()(const ctl::Replay& replay) const {
        checkFile(replay.profiles);
        checkFile(replay.trace);
        precondition(replay.profiles != "-" || replay.trace != "-", "both from one stream");
    }
    template <class Other>
    void operator()(const Other&) const {}

    static void checkAction(const ActionArgument& argument) {
        if (const auto* profile = std::get_if<ProfileReference>(&argument))
            checkProfile(*profile);
        else if (const auto* fixed = std::get_if<action::Fixed>(&std::get<Action>(argument)))
            precondition(fixed->speed >= 0 && fixed->speed <= 1, "a speed of no fan");
    }
    static void checkProfile(const ProfileReference& profile) {
        precondition(!profile.text.empty(), "a profile without a name");
    }
    static void checkFile(const std::string& file) {
        precondition(!file.empty(), "a file without a name");
    }
};

void checkCommandLine(const QStringList& line) {
    const auto request = ctl::CommandLine::parse(line);
    if (const auto* refusal = std::get_if<ctl::CommandLine::Refuse>(&request)) {
        checkRefusal(refusal->line);
    } else if (const auto* print = std::get_if<ctl::CommandLine::Print>(&request)) {
        precondition(print->text.ends_with('\n'), "no help");
    } else if (const auto* run = std::get_if<ctl::CommandLine::Run>(&request)) {
        precondition(run->command != nullptr && isWithinADay(run->timeout), "nothing to run");
        std::visit(CheckParameters(), run->parameters);
        // A command is the one that the words name.
        const std::string name(run->command->name);
        precondition(line.contains(QString::fromStdString(name.substr(0, name.find(' ')))),
                     "another command than was given");
    }
}

void checkAgent(const QStringList& line) {
    const auto request = AgentCommandLine::parse(line);
    if (const auto* refusal = std::get_if<AgentCommandLine::Refuse>(&request))
        checkRefusal(refusal->line.toStdString());
    else if (const auto* run = std::get_if<AgentCommandLine::Run>(&request))
        // Whoever says so must be heard, wherever in the line.
        precondition(run->dryRun == line.contains(QStringLiteral("--dry-run")) ||
                         line.contains(QStringLiteral("--")) ||
                         line.contains(QStringLiteral("--socket")) ||
                         line.contains(QStringLiteral("--log-level")),
                     "a dry run that writes, or the other way round");
}

void checkSimulator(const QStringList& line) {
    const auto request = SimulatorCommandLine::parse(line);
    if (const auto* refusal = std::get_if<SimulatorCommandLine::Refuse>(&request)) {
        checkRefusal(refusal->line.toStdString());
    } else if (const auto* run = std::get_if<SimulatorCommandLine::Run>(&request)) {
        precondition(run->speed > 0 && run->speed <= SimulatorCommandLine::greatestSpeed,
                     "time that stands still");
        precondition(run->mac.fans <= 10 && run->mac.sensors <= SensorBank::most, "too many");
        precondition(!run->socket || !run->socket->empty(), "a socket without a path");
        for (const auto& fault : run->faults)
            precondition(QString::fromStdString(fault.key).size() == 4, "a fault of no key");
    }
}

void checkNumbers(const std::string& text) {
    if (const auto number = parseDecimal(text))
        precondition(*number >= 0, "a decimal with a sign");
    if (const auto number = parseWholeNumber(text))
        precondition(*number >= 0 && parseDecimal(text), "a whole number that is no decimal");
    if (const auto fraction = parsePercentage(text))
        precondition(*fraction >= 0 && *fraction <= 1, "a percentage of no fan");
    if (const auto seconds = parseDuration(text))
        precondition(*seconds > 0 && *seconds <= 1e9, "a duration that nobody waits");
}

} // namespace

/// The arguments of the programs: what is taken is within its bounds, what is refused is told in
/// one line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedBytes input(data, size);
    const std::size_t program = input.below(4);
    if (program == 3) {
        checkNumbers(input.rest());
        return 0;
    }
    QStringList line{QStringLiteral("program")};
    while (!input.empty() && line.size() < 12)
        line << someWord(input);
    program == 0 ? checkCommandLine(line) : program == 1 ? checkAgent(line) : checkSimulator(line);
    return 0;
}
