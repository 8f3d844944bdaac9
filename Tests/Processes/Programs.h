#pragma once

#include "Support/PrivateBus.h"

namespace tervale {

/// `tervale-simulator` in the session. Started once it has said what it offers.
class SimulatorProgram : public ChildProcess {
  public:
    explicit SimulatorProgram(const PrivateBus& bus, const QStringList& arguments = {})
        : ChildProcess(QStringLiteral(TERVALE_SIMULATOR), arguments, bus.environment()) {
        const bool silent = arguments.contains(QStringLiteral("--no-agent"));
        says(silent ? "Controller on" : "Agent on the session bus\n");
    }
};

/// `tervale-window` in the session, on no screen.
class WindowProgram : public ChildProcess {
  public:
    explicit WindowProgram(const QProcessEnvironment& environment)
        : ChildProcess(QStringLiteral(TERVALE_WINDOW), {}, environment) {}
    explicit WindowProgram(const PrivateBus& bus) : WindowProgram(bus.environment()) {}
};

} // namespace tervale
