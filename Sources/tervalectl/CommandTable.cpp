#include "tervalectl/CommandTable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <vector>

namespace tervale {

namespace {

using namespace std::string_view_literals;
using ctl::CommandDescription;
using ctl::OptionDescription;

constexpr std::array machine{"json"sv, "simulate"sv, "socket"sv};
constexpr std::array sensors{"group"sv, "json"sv, "simulate"sv, "socket"sv};
constexpr std::array monitor{"interval"sv, "count"sv, "json"sv, "simulate"sv, "socket"sv};
constexpr std::array agent{"json"sv, "timeout"sv, "simulate"sv, "socket"sv};
constexpr std::array file{"json"sv};
constexpr std::array replay{"profiles"sv, "selection"sv, "json"sv};

constexpr const char* actions =
    "ACTION is automatic, max, a percentage such as 40%, or profile and its name or id.\n";

constexpr std::array commands{
    CommandDescription{"fans", "", "show the fans, their speeds and limits", machine, ""},
    CommandDescription{"sensors", "[FILTER]", "show the temperatures of the sensors", sensors,
                       "FILTER is a part of the sensors' names or keys, in any case.\n"},
    CommandDescription{
        "monitor", "", "show load, temperatures and fans again and again", monitor,
        "With --json each line is an object with time (seconds since 1970), minute (of\n"
        "the day), load (percent), temperatures and fans, which 'replay' takes.\n"},
    CommandDescription{"state", "", "show what the agent does", agent, ""},
    CommandDescription{"select", "ACTION", "choose what drives the fans", agent, ""},
    CommandDescription{"timer", "ACTION DURATION", "choose what drives the fans for a while", agent,
                       "DURATION is a number of seconds, or such as 90s, 15m, 1h30m.\n"},
    CommandDescription{"cancel-timer", "", "end a running timer", agent, ""},
    CommandDescription{"launch-at-login", "on|off", "start the agent when the user logs in, or not",
                       agent, ""},
    CommandDescription{"check-for-updates", "", "have the agent look for a newer version", agent,
                       "What it finds, the agent tells in its status.\n"},
    CommandDescription{"profiles list", "", "show the agent's profiles", agent, ""},
    CommandDescription{"profiles export", "[FILE]", "write the agent's profiles as JSON", agent,
                       "Writes to standard output without FILE, or if it is '-'.\n"},
    CommandDescription{"profiles import", "FILE", "replace the agent's profiles", agent,
                       "FILE holds what 'profiles export' writes; '-' is standard input. Profiles\n"
                       "with problems are refused, and the agent keeps what it has.\n"},
    CommandDescription{"profiles validate", "FILE", "tell what is wrong with profiles", file,
                       "FILE holds what 'profiles export' writes; '-' is standard input.\n"},
    CommandDescription{
        "replay", "[TRACE]", "try profiles on recorded readings", replay,
        "--profiles and --selection are required. An ACTION of several words is quoted,\n"
        "as in --selection 'profile Quiet'.\n"
        "TRACE holds what 'monitor --json' writes; it is standard input if it is\n"
        "missing or '-'. Each line is one control tick, and what the fans would do\n"
        "is printed for each.\n"},
};

constexpr std::array options{
    OptionDescription{"group", "GROUP", "only this group: cpu, gpu, memory, ssd, power, other"},
    OptionDescription{"interval", "S", "seconds from line to line (1)"},
    OptionDescription{"count", "N", "end after so many lines"},
    OptionDescription{"profiles", "FILE", "the profiles to try; '-' is standard input"},
    OptionDescription{"selection", "ACTION", "what is selected, as for 'select', or its JSON"},
    OptionDescription{"json", "", "write JSON, for programs"},
    OptionDescription{"timeout", "S", "how long to wait for the agent, in seconds (2)"},
    OptionDescription{"simulate", "",
                      "use a simulated Mac whose agent lives as long as the command"},
    OptionDescription{"socket", "PATH", "use the controller that is served on this socket"},
    OptionDescription{"help", "", "show this help"},
    OptionDescription{"version", "", "show the version"},
};

std::string spelling(const OptionDescription& option) {
    std::string text = "--" + std::string(option.name);
    if (!option.value.empty())
        text += ' ' + std::string(option.value);
    return text;
}

/// Two columns; `Row` tells its left cell through `left`.
template <class Rows, class Left>
std::string listing(const Rows& rows, Left left) {
    std::size_t width = 0;
    for (const auto& row : rows)
        width = std::max(width, left(row).size());
    std::string text;
    for (const auto& row : rows) {
        const std::string cell = left(row);
        text += "  " + cell + std::string(width - cell.size() + 2, ' ') + std::string(row.summary) +
                '\n';
    }
    return text;
}

std::string withArguments(const CommandDescription& command) {
    std::string text(command.name);
    if (!command.arguments.empty())
        text += ' ' + std::string(command.arguments);
    return text;
}

std::string capitalised(std::string_view sentence) {
    std::string text(sentence);
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

bool takesAction(const CommandDescription& command) {
    return command.arguments.starts_with("ACTION") || ctl::takes(command, "selection");
}

} // namespace

std::span<const CommandDescription> ctl::allCommands() {
    return commands;
}

std::span<const OptionDescription> ctl::allOptions() {
    return options;
}

const CommandDescription* ctl::findCommand(std::string_view name) {
    const auto found = std::ranges::find(commands, name, &CommandDescription::name);
    return found == commands.end() ? nullptr : &*found;
}

bool ctl::takes(const CommandDescription& command, std::string_view option) {
    return option == "help" || std::ranges::find(command.options, option) != command.options.end();
}

std::string ctl::help(std::string_view group) {
    std::vector<CommandDescription> members;
    std::ranges::copy_if(commands, std::back_inserter(members), [&](const auto& command) {
        return command.name.starts_with(std::string(group) + ' ');
    });
    return members.empty() ? std::string() : listing(members, withArguments);
}

std::string ctl::help() {
    return "Usage: tervalectl COMMAND [ARGUMENT]... [OPTION]...\n"
           "Reads this machine's fans and temperatures, and speaks with the agent in the menu bar\n"
           "that drives its fans.\n"
           "\n" +
           listing(commands, withArguments) +
           "\n"
           "'tervalectl COMMAND --help' tells more of a command, --version the version. A FILTER,\n"
           "FILE or TRACE that begins with a dash comes after '--'.\n"
           "\n"
           "Exit status: 0 done, 1 refused or a problem found, 2 wrong usage, 3 no answer from "
           "the agent.\n";
}

std::string ctl::help(const CommandDescription& command) {
    std::vector<OptionDescription> taken;
    std::ranges::copy_if(options, std::back_inserter(taken), [&](const OptionDescription& option) {
        return takes(command, option.name);
    });
    return "Usage: tervalectl " + withArguments(command) + " [OPTION]...\n" +
           capitalised(command.summary) + ".\n" + (takesAction(command) ? actions : "") +
           std::string(command.details) + "\n" + listing(taken, spelling);
}

} // namespace tervale
