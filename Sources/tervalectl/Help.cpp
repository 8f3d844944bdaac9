#include "tervalectl/Help.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace tervale::ctl {

namespace {

constexpr const char* actions =
    "ACTION is automatic, max, a percentage such as 40%, or profile and its name or id.\n";

std::string synopsis(const Option& option) {
    std::string text;
    if (!option.letter.empty())
        text += "-" + std::string(option.letter) + ", ";
    text += "--" + std::string(option.name);
    if (!option.value.empty())
        text += ' ' + std::string(option.value);
    return text;
}

std::string synopsis(const Command& command) {
    std::string text(command.name);
    if (!command.arguments.empty())
        text += ' ' + std::string(command.arguments);
    return text;
}

/// Two columns, the synopsis and the summary of each row.
template <class Rows>
std::string listing(const Rows& rows) {
    std::size_t width = 0;
    for (const auto& row : rows)
        width = std::max(width, synopsis(row).size());
    std::string text;
    for (const auto& row : rows) {
        const std::string left = synopsis(row);
        text += "  " + left + std::string(width - left.size() + 2, ' ') + std::string(row.summary) +
                '\n';
    }
    return text;
}

std::string capitalised(std::string_view sentence) {
    std::string text(sentence);
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

bool takesAction(const Command& command) {
    return command.arguments.starts_with("ACTION") || takes(command, "selection");
}

} // namespace

std::string help(std::string_view group) {
    std::vector<Command> members;
    std::ranges::copy_if(allCommands(), std::back_inserter(members), [&](const Command& command) {
        return command.name.starts_with(std::string(group) + ' ');
    });
    return listing(members);
}

std::string help() {
    return "Usage: tervalectl COMMAND [ARGUMENT]... [OPTION]...\n"
           "Reads this machine's fans and temperatures, and sends commands to the agent that "
           "drives\n"
           "the fans.\n"
           "\n" +
           listing(allCommands()) +
           "\n"
           "'tervalectl COMMAND --help' shows the help of a command, --version the version. Write\n"
           "'--' before a FILTER, FILE or TRACE that begins with a dash.\n"
           "\n"
           "Exit status: 0 done, 1 refused or a problem found, 2 wrong usage, 3 no answer from "
           "the agent.\n";
}

std::string help(const Command& command) {
    std::vector<Option> taken;
    std::ranges::copy_if(allOptions(), std::back_inserter(taken),
                         [&](const Option& option) { return takes(command, option.name); });
    return "Usage: tervalectl " + synopsis(command) + " [OPTION]...\n" +
           capitalised(command.summary) + ".\n" + (takesAction(command) ? actions : "") +
           std::string(command.details) + "\n" + listing(taken);
}

} // namespace tervale::ctl
