#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tervale::ctl {

/// An option that some of the commands take.
struct OptionDescription {
    std::string_view name;
    /// What its value is called; empty for an option without one.
    std::string_view value;
    std::string_view summary;
};

/// What people read of a command.
struct CommandDescription {
    /// One word or two.
    std::string_view name;
    /// The words that follow the name, such as "[FILTER]".
    std::string_view arguments;
    std::string_view summary;
    /// Names of the options that it takes, besides --help.
    std::span<const std::string_view> options;
    /// Further sentences for its help, each ending its line; may be empty.
    std::string_view details;
};

std::span<const CommandDescription> allCommands();
std::span<const OptionDescription> allOptions();

/// Null for an unknown name.
const CommandDescription* findCommand(std::string_view name);
bool takes(const CommandDescription& command, std::string_view option);

/// The help of the program, and of one command.
std::string help();
std::string help(const CommandDescription& command);
/// The commands whose first of two words this is; empty if there are none.
std::string help(std::string_view group);

} // namespace tervale::ctl
