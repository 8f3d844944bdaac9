#pragma once

#include "tervalectl/CommandLine.h"
#include "tervalectl/Context.h"

#include <ostream>

namespace tervale {

/// Performs the command. What goes wrong is one line on `errors`.
ExitStatus carryOut(const ctl::CommandLine::Run& run, Context& context, std::ostream& errors);

/// "tervalectl: ", and the line without what a terminal would obey.
void complain(std::ostream& errors, const std::string& line);

} // namespace tervale
