#pragma once

#include "Agent/Agent.h"
#include "Platform/AgentLock.h"
#include "Platform/GuardProcess.h"
#include "Profiles/Clock.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Preferences.h"
#include "SMC/SMC.h"
#include "tervale-agent/AgentCommandLine.h"
#include "tervale-agent/AgentLog.h"
#include "tervale-agent/AgentMachine.h"
#include "tervale-agent/StateLog.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tervale {

/// The agent, with all that keeps it running: the lock of the session, the machine, the guard, one
/// tick a second. A machine whose controller is not there yet is looked for at each tick. Main
/// thread.
class AgentProgram {
  public:
    /// Throws `AgentLock::Refused` where another agent runs, and `NoSuchMachine`. `center` outlives
    /// the object.
    AgentProgram(const AgentCommandLine::Run& run, NotificationCenter& center);
    ~AgentProgram();
    AgentProgram(const AgentProgram&) = delete;
    AgentProgram& operator=(const AgentProgram&) = delete;

    /// Around a sleep of the machine.
    void sleep();
    void wake();
    /// Hands the fans back and says so; the agent ticks no more. The exit status.
    int end(std::string_view reason);

  private:
    void tick();
    /// Makes the agent, if the controller is there.
    void begin();
    bool keepGuard();
    void logState();
    void log(AgentLog::Level level, std::string_view line);

    SystemClock clock;
    AgentLock lock;
    AgentLog messages;
    NotificationCenter& center;
    AgentMachine machine;
    std::unique_ptr<Preferences> preferences;
    /// Null where none is needed.
    std::unique_ptr<GuardProcess> guard;
    std::optional<std::string> remark;
    std::optional<SMC> smc;
    std::optional<Agent> agent;
    StateLog stateLog;
    bool controllerMissed = false;
    QElapsedTimer sinceTick;
    QTimer timer;
};

} // namespace tervale
