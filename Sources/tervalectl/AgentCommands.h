#pragma once

#include "tervalectl/Context.h"
#include "tervalectl/Parameters.h"

namespace tervale {

// Each returns once the agent has confirmed, and prints the state that does: what its status says,
// or all of it as JSON. Throw `Failure`.
ExitStatus perform(const ctl::State& command, Context& context);
ExitStatus perform(const ctl::Select& command, Context& context);
ExitStatus perform(const ctl::Timer& command, Context& context);
ExitStatus perform(const ctl::CancelTimer& command, Context& context);
ExitStatus perform(const ctl::LaunchAtLogin& command, Context& context);
ExitStatus perform(const ctl::CheckForUpdates& command, Context& context);

} // namespace tervale
