#include "tervalectl/CommandLine.h"

#include "tervalectl/CommandParsing.h"
#include "tervalectl/Help.h"

#include <optional>

namespace tervale::ctl {

namespace {

/// Such as "list, export, import".
std::string membersOf(const std::string& group) {
    std::string text;
    for (const Command& command : allCommands()) {
        if (command.name.starts_with(group + ' '))
            text += (text.empty() ? "" : ", ") + std::string(command.name.substr(group.size() + 1));
    }
    return text;
}

const Command& takeCommand(Arguments& arguments) {
    std::string name = arguments.take();
    const auto unknown = [&name] { return misuse("There is no command '" + name + "'."); };
    if (!help(std::string_view(name)).empty()) {
        if (arguments.isEmpty())
            throw misuse(name + ": COMMAND is missing: " + membersOf(name) + ".");
        name += ' ' + arguments.take();
    } else if (name.find(' ') != std::string::npos) {
        throw unknown();
    }
    const Command* command = findCommand(name);
    if (!command)
        throw unknown();
    return *command;
}

std::string takeHelp(Arguments& arguments) {
    if (arguments.isEmpty())
        return help();
    if (std::string members = help(std::string_view(arguments.first()));
        !members.empty() && arguments.count() == 1)
        return members;
    return help(takeCommand(arguments));
}

void refuseOptionsNotTaken(const Command& command, const Arguments& arguments) {
    for (const Option& option : allOptions()) {
        if (arguments.has(option.name) && !takes(command, option.name))
            throw misuse("'" + std::string(command.name) + "' takes no --" +
                         std::string(option.name) + ".");
    }
}

MachineChoice takeMachine(const Arguments& arguments) {
    std::optional<std::string> socket;
    if (arguments.has("socket"))
        socket = arguments.path("socket");
    const auto machine = chooseMachine(arguments.has("simulate"), socket);
    if (const auto* fault = std::get_if<MachineChoiceFault>(&machine))
        throw misuse(fault->line);
    return std::get<MachineChoice>(machine);
}

CommandLine::Run takeRun(const Command& command, Arguments& arguments) {
    refuseOptionsNotTaken(command, arguments);
    CommandLine::Run run{&command, command.parse(arguments)};
    if (!arguments.isEmpty())
        throw misuse("Unexpected argument '" + arguments.first() + "'.");
    run.json = arguments.has("json");
    run.timeout = parseSeconds(arguments, "timeout", run.timeout);
    run.machine = takeMachine(arguments);
    return run;
}

} // namespace

CommandLine::Request CommandLine::parse(const QStringList& line) {
    try {
        Arguments arguments(line);
        if (arguments.has("version"))
            return ShowVersion{};
        if (arguments.has("help"))
            return Print{takeHelp(arguments)};
        if (arguments.isEmpty())
            throw misuse("A command is missing.");
        if (arguments.first() == "help") {
            arguments.take();
            return Print{takeHelp(arguments)};
        }
        const Command& command = takeCommand(arguments);
        return takeRun(command, arguments);
    } catch (const Failure& failure) {
        return Refuse{failure.line};
    }
}

} // namespace tervale::ctl
