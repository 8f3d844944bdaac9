#pragma once

#include "tervalectl/CommandTable.h"

#include <string>
#include <string_view>

namespace tervale::ctl {

/// The help of the program.
std::string help();
/// The help of one command.
std::string help(const Command& command);
/// The commands of a group such as "profiles"; empty if there is no such group.
std::string help(std::string_view group);

} // namespace tervale::ctl
