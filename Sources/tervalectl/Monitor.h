#pragma once

#include "tervalectl/Command.h"
#include "tervalectl/Context.h"

namespace tervale {

/// Prints what the machine reads, one line a tick, each as soon as it is known. Ends early where
/// nobody reads the output any more. Throws `SMCError` if the controller cannot be opened; later, a
/// fan or a sensor that cannot be read is missing from its line.
ExitStatus perform(const ctl::Monitor& command, Context& context);

} // namespace tervale
