#include "Base/Overloaded.h"
#include "Platform/Linux/TerminationSignals.h"
#include "Platform/Platform.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "tervale-simulator/Simulator.h"

#include <QCoreApplication>

#include <cstdio>
#include <tervale/Version.h>

using namespace tervale;

namespace {

constexpr int failure = 1;
constexpr int wrongUsage = 2;

int print(std::FILE* stream, const QString& text, int status) {
    std::fputs(text.toLocal8Bit().constData(), stream);
    return status;
}

int complain(const QString& line, int status) {
    return print(stderr, QStringLiteral("tervale-simulator: %1\n").arg(line), status);
}

/// What is there now. Whoever started the program may wait for these lines.
void announce(const SimulatorCommandLine::Run& run, const Simulator& simulator) {
    if (simulator.socketPath())
        std::printf("Controller on %s\n", simulator.socketPath()->c_str());
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
    return std::visit(
        overloaded{
            [](const SimulatorCommandLine::Run& run) { return simulate(run); },
            [](const SimulatorCommandLine::ShowHelp&) {
                return print(stdout, SimulatorCommandLine::help(), 0);
            },
            [](const SimulatorCommandLine::ShowVersion&) {
                return print(
                    stdout,
                    QStringLiteral("tervale-simulator %1\n").arg(QLatin1String(version::text)), 0);
            },
            [](const SimulatorCommandLine::Refuse& refusal) {
                return complain(refusal.line + QStringLiteral(" See --help."), wrongUsage);
            },
        },
        SimulatorCommandLine::parse(QCoreApplication::arguments()));
}
