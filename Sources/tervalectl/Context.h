#pragma once

#include "Machine/Machine.h"
#include "Profiles/Clock.h"
#include "tervalectl/Failure.h"

#include <functional>
#include <istream>
#include <ostream>

namespace tervale {

/// What a command works with. `out` fails where it can no longer be written to.
struct Context {
    std::istream& in;
    std::ostream& out;
    const Clock& clock;
    /// Write for programs rather than for eyes.
    bool json = false;
    /// How long to wait for the agent, in seconds.
    double timeout = 2;
    /// The machine, for those who need one. Throws `NoSuchMachine`.
    std::function<Machine()> makeMachine;
};

} // namespace tervale
