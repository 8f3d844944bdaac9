#pragma once

#include "tervalectl/Arguments.h"
#include "tervalectl/Context.h"
#include "tervalectl/Parameters.h"

#include <span>
#include <string_view>

namespace tervale::ctl {

/// An option of the program. The table holds each once; a command names those that it takes.
struct Option {
    std::string_view name;
    /// The name of its value; empty for an option without one.
    std::string_view value;
    std::string_view summary;
    /// One letter that stands for the name; none unless given.
    std::string_view letter = {};
};

/// A row of the table: all that makes a command.
struct Command {
    /// One word, or a group and a word.
    std::string_view name;
    /// The positional arguments as the help shows them, such as "[FILTER]".
    std::string_view arguments;
    /// The names of its options, without --help, which every command takes.
    std::span<const std::string_view> options;
    std::string_view summary;
    /// Further lines for its help, each with its line break; may be empty.
    std::string_view details;
    /// Takes the arguments that follow the name. Throws `Failure`.
    Parameters (*parse)(Arguments&);
    /// `parameters` hold what `parse` returned. Throws `Failure` and `SMCError`.
    ExitStatus (*perform)(const Parameters& parameters, Context&);
};

std::span<const Command> allCommands();
std::span<const Option> allOptions();

/// Null for an unknown name.
const Command* findCommand(std::string_view name);
bool takes(const Command& command, std::string_view option);

} // namespace tervale::ctl
