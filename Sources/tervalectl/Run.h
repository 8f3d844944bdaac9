#pragma once

#include "tervalectl/CommandLine.h"
#include "tervalectl/Context.h"

#include <ostream>

namespace tervale {

/// Carries a command out. What goes wrong is one line on `errors`.
ExitStatus carryOut(const ctl::Command& command, Context& context, std::ostream& errors);

/// "tervalectl: ", and the line without what a terminal would obey.
void complain(std::ostream& errors, const std::string& line);

} // namespace tervale
