#include "Base/Overloaded.h"
#include "Base/Terminal.h"
#include "Machine/SessionEnd.h"
#include "Platform/Platform.h"
#include "Platform/TerminationSignals.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "tervale-simulator/Simulator.h"

#include <QCoreApplication>

#include <clocale>
#include <cstdio>
#include <string>
#include <tervale/Version.h>

using namespace tervale;

namespace {

/// Where this program writes.
Terminal terminal() {
    return Terminal("tervale-simulator");
}

/// What is there now. Whoever started the program may wait for these lines.
void announce(const SimulatorCommandLine::Run& run, const Simulator& simulator) {
    if (simulator.socketPath())
        std::printf("Controller on %s\n", printable(simulator.socketPath()->string()).c_str());
    if (run.agent)
        std::printf("Agent on the session bus\n");
    std::fflush(stdout);
}

int simulate(const SimulatorCommandLine::Run& run) {
    const TerminationSignals end([] { QCoreApplication::quit(); });
    std::unique_ptr<NotificationCenter> center;
    if (run.agent)
        center = makeNotificationCenter();
    if (run.agent && !center)
        return terminal().complain("There is no session bus for the agent. See --no-agent.",
                                   exitStatus::failure);
    if (!center)
        center = std::make_unique<InProcessNotificationCenter>();
    const auto preferences = makePreferences("tervale-simulation");
    try {
        const Simulator simulator(run, *center, *preferences);
        const SessionEnd sessionEnd(*center, [] { QCoreApplication::quit(); });
        announce(run, simulator);
        return QCoreApplication::exec();
    } catch (const SocketServer::Refused& refusal) {
        return terminal().complain(refusal.what(), exitStatus::failure);
    }
}

} // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    // The toolkit takes over the user's locale for all of the process; numbers are the same
    // everywhere.
    std::setlocale(LC_NUMERIC, "C");
    return std::visit(
        overloaded{
            [](const SimulatorCommandLine::Run& run) { return simulate(run); },
            [](const SimulatorCommandLine::ShowHelp&) {
                return terminal().print(SimulatorCommandLine::help().toStdString());
            },
            [](const SimulatorCommandLine::ShowVersion&) {
                return terminal().print(std::string("tervale-simulator ") + version::text + "\n");
            },
            [](const SimulatorCommandLine::Refuse& refusal) {
                return terminal().complain(refusal.line.toStdString() + " See --help.",
                                           exitStatus::wrongUsage);
            },
        },
        SimulatorCommandLine::parse(QCoreApplication::arguments()));
}
