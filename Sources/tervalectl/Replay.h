#pragma once

#include "tervalectl/Context.h"
#include "tervalectl/Parameters.h"

namespace tervale {

/// Feeds recorded readings through the controller and prints what the fans would do, one line for
/// each, as it goes. Throws `Failure` at the first line that is none.
ExitStatus perform(const ctl::Replay& command, Context& context);

} // namespace tervale
