#pragma once

#include "tervalectl/Context.h"
#include "tervalectl/Parameters.h"

namespace tervale {

// The agent's profiles, and files of profiles. Throw `Failure`.
ExitStatus perform(const ctl::ListProfiles& command, Context& context);
ExitStatus perform(const ctl::ExportProfiles& command, Context& context);
// Both send one command, and only if no profile would have a problem.
ExitStatus perform(const ctl::ImportProfiles& command, Context& context);
ExitStatus perform(const ctl::RemoveProfile& command, Context& context);
ExitStatus perform(const ctl::ShowProfile& command, Context& context);
/// Refused if a profile has a problem.
ExitStatus perform(const ctl::ValidateProfiles& command, Context& context);

} // namespace tervale
