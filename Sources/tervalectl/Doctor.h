#pragma once

#include "tervalectl/Context.h"
#include "tervalectl/Parameters.h"

namespace tervale {

/// Looks at everything that has to be there for the agent to drive the fans, a line each. Ends with
/// `ExitStatus::refused` if something is wrong. Changes nothing: what it stores to see whether that
/// is possible it removes.
ExitStatus perform(const ctl::Doctor& command, Context& context);

} // namespace tervale
