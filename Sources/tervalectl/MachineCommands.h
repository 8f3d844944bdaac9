#pragma once

#include "tervalectl/Context.h"
#include "tervalectl/Parameters.h"

namespace tervale {

// Each reads the controller once. Throw `SMCError`.
ExitStatus perform(const ctl::Fans& command, Context& context);
ExitStatus perform(const ctl::Sensors& command, Context& context);

} // namespace tervale
