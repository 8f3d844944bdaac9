#pragma once

#include "Machine/Machine.h"
#include "Profiles/Clock.h"
#include "tervalectl/Failure.h"
#include "tervalectl/Session.h"
#include "tervalectl/TextStyle.h"

#include <functional>
#include <istream>
#include <ostream>
#include <string>

namespace tervale {

/// The surroundings of a command: streams, clock, options, machine. `out` fails when it can no
/// longer be written to.
struct Context {
    std::istream& in;
    std::ostream& out;
    const Clock& clock;
    /// Write JSON rather than tables.
    bool json = false;
    /// How long to wait for the agent, in seconds.
    double timeout = 2;
    /// Makes the machine, for a command that needs one. Throws `NoSuchMachine`.
    std::function<Machine()> makeMachine;
    Session session;
    /// What standard output can show.
    TextStyle textStyle{};
    /// Turns a document of SVG into a PNG file's text. Throws `Failure`.
    std::function<std::string(const std::string& svg)> drawPNG{};
};

} // namespace tervale
