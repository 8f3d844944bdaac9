#pragma once

#include "tervalectl/Context.h"
#include "tervalectl/Parameters.h"

namespace tervale {

/// Prints whether an agent answers, its process and its guard's, and its status. Ends with
/// `ExitStatus::noAnswer` if none answers, though one may run.
ExitStatus perform(const ctl::ShowAgent& command, Context& context);

} // namespace tervale
