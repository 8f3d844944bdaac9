#include "Base/Overloaded.h"
#include "Base/Terminal.h"
#include "Platform/TerminationSignals.h"
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

int simulate(const SimulatorCommandLine::Run& run) {
    const TerminationSignals end([] { QCoreApplication::quit(); });
    try {
        const Simulator simulator(run, [](const std::string& line) {
            static_cast<void>(terminal().complain(line, exitStatus::done));
        });
        // Whoever started the program may wait for this line.
        std::printf("Controller on %s\n", printable(simulator.socketPath().string()).c_str());
        std::fflush(stdout);
        return QCoreApplication::exec();
    } catch (const SocketServer::Refused& refusal) {
        return terminal().complain(refusal.what(), exitStatus::failure);
    } catch (const Simulator::NoSuchKey& refusal) {
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
