#pragma once

#include "tervalectl/Context.h"
#include "tervalectl/Parameters.h"

namespace tervale {

/// Prints what the machine reads, one line a tick, each as soon as it is known. Ends early where
/// nobody reads the output any more. Throws `SMCError` if the controller cannot be opened; later,
/// what cannot be read is missing from its line, and a controller that went is looked for again.
ExitStatus perform(const ctl::Monitor& command, Context& context);

} // namespace tervale
