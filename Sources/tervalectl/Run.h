#pragma once

#include "tervalectl/CommandLine.h"
#include "tervalectl/Context.h"

#include <ostream>

namespace tervale {

/// Performs the command. What goes wrong is one line on `errors`, begun with "tervalectl: ".
ExitStatus perform(const ctl::CommandLine::Run& run, Context& context, std::ostream& errors);

} // namespace tervale
