#include "Base/Overloaded.h"
#include "Base/Terminal.h"
#include "Machine/Machine.h"
#include "Machine/SessionEnd.h"
#include "Platform/Platform.h"
#include "Platform/TerminationSignals.h"
#include "tervale-agent/AgentCommandLine.h"
#include "tervale-agent/AgentProgram.h"
#include "tervale-agent/Guard.h"
#include "tervale-agent/ToolkitMessages.h"

#include <QCoreApplication>

#include <chrono>
#include <clocale>
#include <optional>
#include <string>
#include <tervale/Version.h>

using namespace tervale;

namespace {

/// Where this program writes.
Terminal terminal() {
    return Terminal("tervale-agent");
}

/// Why there is no agent, as its log tells errors.
int complain(const AgentCommandLine::Run& run, const char* line, int status = exitStatus::failure) {
    AgentLog::standard(run.logLevel).complain(line);
    return status;
}

/// What the toolkit tells. Its lines are counted by themselves, so that they crowd nothing out.
struct ToolkitLog {
    explicit ToolkitLog(AgentLog::Level most) : log(AgentLog::standard(most)) {}

    AgentLog log;
    ToolkitMessages messages{log};
};

int runAgent(const AgentCommandLine::Run& run) {
    const std::unique_ptr<NotificationCenter> center = makeNotificationCenter();
    if (!center)
        return complain(run, "There is no session bus to be heard on.");
    std::optional<AgentProgram> program;
    // Before it takes the fans, which a signal must not leave where they are. The event loop tells.
    const TerminationSignals ending(
        [&program] { QCoreApplication::exit(program->end("Told to end.")); });
    // So before it, since the system's bus may keep one waiting.
    const SessionEnd sessionEnd(
        *center, [&program] { QCoreApplication::exit(program->end("The session is over.")); });
    const auto sleep =
        makeSleepWatch({[&program] { program->sleep(); }, [&program] { program->wake(); },
                        [&program](SleepNews news) { program->note(news); }});
    try {
        program.emplace(
            run, *center,
            AgentProgram::Ending{.finish = &QCoreApplication::exit,
                                 .toldWithin = [&ending](std::chrono::milliseconds time) {
                                     return ending.arriveWithin(time);
                                 }});
        if (!sleep)
            program->note(SleepNews::untold);
        return QCoreApplication::exec();
    } catch (const AgentLock::Unavailable& fault) {
        return complain(run, fault.what(), AgentProgram::withoutLock);
    } catch (const AgentLock::Refused& refusal) {
        return complain(run, refusal.what());
    } catch (const NoSuchMachine& missing) {
        return complain(run, missing.what());
    }
}

} // namespace

int main(int count, char** arguments) {
    // The guard is this program too, but without the toolkit.
    if (const std::optional<int> status = standGuard(count, arguments))
        return *status;
    prepareEventLoop();
    const QCoreApplication application(count, arguments);
    // The toolkit takes over the user's locale for all of the process; numbers are the same
    // everywhere.
    std::setlocale(LC_NUMERIC, "C");
    return std::visit(
        overloaded{
            [](const AgentCommandLine::Run& run) {
                // Never let go of: the toolkit has something to tell also while it ends.
                const ToolkitLog& toolkit = *new ToolkitLog(run.logLevel);
                const int status = runAgent(run);
                toolkit.log.drain(LineWriter::lastPatience);
                return status;
            },
            [](const AgentCommandLine::ShowHelp&) {
                return terminal().print(AgentCommandLine::help().toStdString());
            },
            [](const AgentCommandLine::ShowVersion&) {
                return terminal().print(std::string("tervale-agent ") + version::text + "\n");
            },
            [](const AgentCommandLine::Refuse& refusal) {
                return terminal().complain(refusal.line.toStdString() + " See --help.",
                                           exitStatus::wrongUsage);
            },
        },
        AgentCommandLine::parse(QCoreApplication::arguments()));
}
