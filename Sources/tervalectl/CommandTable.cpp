#include "tervalectl/CommandTable.h"

#include "tervalectl/AgentCommands.h"
#include "tervalectl/CommandParsing.h"
#include "tervalectl/Doctor.h"
#include "tervalectl/MachineCommands.h"
#include "tervalectl/Monitor.h"
#include "tervalectl/ProfileCommands.h"
#include "tervalectl/Replay.h"
#include "tervalectl/ShowAgent.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace tervale::ctl {

namespace {

using namespace std::string_view_literals;

constexpr std::array machine{"json"sv, "simulate"sv, "socket"sv};
constexpr std::array sensors{"group"sv, "json"sv, "simulate"sv, "socket"sv};
constexpr std::array monitor{"interval"sv, "count"sv,    "chart"sv,
                             "json"sv,     "simulate"sv, "socket"sv};
constexpr std::array agent{"json"sv, "timeout"sv, "simulate"sv, "socket"sv};
constexpr std::array state{"follow"sv, "count"sv, "json"sv, "timeout"sv, "simulate"sv, "socket"sv};
constexpr std::array import{"merge"sv, "json"sv, "timeout"sv, "simulate"sv, "socket"sv};
constexpr std::array file{"json"sv};
constexpr std::array replay{"profiles"sv, "selection"sv, "chart"sv, "json"sv};

/// The row of a command whose parameters `parseOwn` returns. The overload of `perform` for their
/// type performs it.
template <auto parseOwn>
constexpr Command command(std::string_view name, std::string_view arguments,
                          std::span<const std::string_view> options, std::string_view summary,
                          std::string_view details = "") {
    using Own = std::invoke_result_t<decltype(parseOwn), Arguments&>;
    return {name,
            arguments,
            options,
            summary,
            details,
            [](Arguments& rest) -> Parameters { return parseOwn(rest); },
            [](const Parameters& parameters, Context& context) {
                return perform(std::get<Own>(parameters), context);
            }};
}

constexpr std::array commands{
    command<parseNone<Fans>>("fans", "", machine, "show the fans, their speeds and limits"),
    command<parseSensors>("sensors", "[FILTER]", sensors, "show the temperatures of the sensors",
                          "FILTER is a part of the sensors' names or keys, in any case.\n"),
    command<parseMonitor>(
        "monitor", "", monitor, "show load, temperatures and fans, line by line",
        "With --json each line is an object with time (seconds since 1970), minute (of\n"
        "the day), load (percent), temperatures and fans, which 'replay' takes, and what\n"
        "the agent last said: selection, timer, status and safety. Without it the last\n"
        "column says where the agent's safety latch is engaged.\n"
        "With --chart a picture of it all is written when the command ends or is\n"
        "interrupted; '-' draws it in the terminal, in place of the lines.\n"),
    command<parseNone<Doctor>>(
        "doctor", "", agent, "look for what keeps the fans from being driven",
        "A line each for the controller, its keys, fans and sensors, the session bus, the\n"
        "agent and its preferences. Ends with 1 if something is wrong.\n"),
    command<parseNone<ShowAgent>>("agent", "", agent, "show whether an agent answers, and which",
                                  "Its process, when it started, its guard, and its status.\n"),
    command<parseState>(
        "state", "", state, "show the state of the agent",
        "With --json the state as the agent publishes it, timerEndsAt, which is timerEnds\n"
        "(seconds since 2001) in ISO 8601, and safety: whether the latch is engaged.\n"),
    command<parseSelect>("select", "ACTION", agent, "select what drives the fans"),
    command<parseTimer>("timer", "ACTION DURATION", agent,
                        "select what drives the fans, for a time",
                        "DURATION is a number of seconds, or a time such as 90s, 15m, 1h30m.\n"),
    command<parseNone<CancelTimer>>("cancel-timer", "", agent, "end the running timer"),
    command<parseLaunchAtLogin>("launch-at-login", "on|off", agent,
                                "choose whether the agent starts at login"),
    command<parseNone<CheckForUpdates>>("check-for-updates", "", agent,
                                        "let the agent look for a newer version",
                                        "The agent's status has the result.\n"),
    command<parseNone<ListProfiles>>("profiles list", "", agent, "show the agent's profiles"),
    command<parseExport>("profiles export", "[FILE]", agent, "write the agent's profiles as JSON",
                         "Writes to standard output without FILE, or if it is '-'.\n"),
    command<parseImport>(
        "profiles import", "FILE", import, "replace the agent's profiles",
        "FILE is one that 'profiles export' wrote; '-' is standard input. Profiles\n"
        "with problems are refused, and the agent keeps its own. With --merge a profile\n"
        "replaces the one with its id, or is added; the others stay.\n"),
    command<parseShow>("profiles show", "NAME", agent, "show a profile, its curve drawn",
                       "NAME is the profile's name or id.\n"),
    command<parseRemove>("profiles remove", "NAME", agent, "remove one of the agent's profiles",
                         "NAME is the profile's name or id. One that a schedule uses is kept.\n"),
    command<parseValidate>("profiles validate", "FILE", file, "show the problems of profiles",
                           "FILE is one that 'profiles export' wrote; '-' is standard input.\n"),
    command<parseReplay>(
        "replay", "[TRACE]", replay, "try profiles on recorded readings",
        "--profiles and --selection are required. An ACTION of several words is quoted,\n"
        "as in --selection 'profile Quiet'.\n"
        "TRACE is a file that 'monitor --json' wrote; standard input if it is missing\n"
        "or '-'. Each line is one control tick; the speed that the fans would have is\n"
        "printed for each. With --chart readings, target and safety are drawn as well;\n"
        "'-' draws them in the terminal, in place of the lines.\n"),
};

constexpr std::array options{
    Option{"group", "GROUP", "only this group: cpu, gpu, memory, ssd, power, other"},
    Option{"interval", "S", "seconds between two lines (1)"},
    Option{"count", "N", "end after this many lines"},
    Option{"follow", "", "show the state again whenever it changes"},
    Option{"merge", "", "keep the agent's other profiles"},
    Option{"chart", "FILE", "draw a picture: a .svg or .png file, or '-' for the terminal"},
    Option{"profiles", "FILE", "the profiles to try; '-' is standard input"},
    Option{"selection", "ACTION", "the selection, as for 'select', or as JSON"},
    Option{"json", "", "write JSON"},
    Option{"timeout", "S", "how long to wait for the agent, in seconds (2)"},
    Option{"simulate", "", "use a simulated Mac whose agent lives as long as the command"},
    Option{"socket", "PATH", "use the controller that is served on this socket"},
    Option{"help", "", "show this help", "h"},
    Option{"version", "", "show the version"},
};

} // namespace

std::span<const Command> allCommands() {
    return commands;
}

std::span<const Option> allOptions() {
    return options;
}

const Command* findCommand(std::string_view name) {
    const auto found = std::ranges::find(commands, name, &Command::name);
    return found == commands.end() ? nullptr : &*found;
}

bool takes(const Command& command, std::string_view option) {
    return option == "help" || std::ranges::find(command.options, option) != command.options.end();
}

} // namespace tervale::ctl
