#include "Base/Overloaded.h"
#include "Base/Terminal.h"
#include "Platform/Linux/TerminationSignals.h"
#include "Platform/Platform.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "tervale-simulator/Simulator.h"

#include <QCoreApplication>

#include <clocale>
#include <cstdio>
#include <tervale/Version.h>

using namespace tervale;

namespace {

constexpr int failure = 1;
constexpr int wrongUsage = 2;

int complain(const QString& line, int status) {
    const std::string text = "tervale-simulator: " + printable(line.toStdString()) + '\n';
    // The exit status reports the error even if printing fails.
    static_cast<void>(tervale::print(stderr, text));
    return status;
}

int print(const QString& text) {
    return tervale::print(stdout, text.toStdString())
               ? 0
               : complain(QStringLiteral("The output cannot be written."), failure);
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
        return complain(QStringLiteral("There is no session bus for the agent. See --no-agent."),
                        failure);
    if (!center)
        center = std::make_unique<InProcessNotificationCenter>();
    const auto preferences = makePreferences("tervale-simulation");
    try {
        const Simulator simulator(run, *center, *preferences);
        announce(run, simulator);
        return QCoreApplication::exec();
    } catch (const SocketServer::Refused& refusal) {
        return complain(QString::fromLocal8Bit(refusal.what()), failure);
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
                return print(SimulatorCommandLine::help());
            },
            [](const SimulatorCommandLine::ShowVersion&) {
                return print(
                    QStringLiteral("tervale-simulator %1\n").arg(QLatin1String(version::text)));
            },
            [](const SimulatorCommandLine::Refuse& refusal) {
                return complain(refusal.line + QStringLiteral(" See --help."), wrongUsage);
            },
        },
        SimulatorCommandLine::parse(QCoreApplication::arguments()));
}
