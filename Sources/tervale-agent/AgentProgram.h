#pragma once

#include "Agent/Agent.h"
#include "Platform/AgentLock.h"
#include "Platform/GuardProcess.h"
#include "Platform/SleepWatch.h"
#include "Profiles/Clock.h"
#include "Profiles/LoadReading.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Preferences.h"
#include "SMC/LateRegistry.h"
#include "SMC/SMC.h"
#include "tervale-agent/AgentCommandLine.h"
#include "tervale-agent/AgentLog.h"
#include "tervale-agent/AgentMachine.h"
#include "tervale-agent/StateLog.h"

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tervale {

/// The agent, with all that keeps it running: the lock of the session, the machine, the guard, one
/// tick a second. It answers also while the controller is not there yet, or lets nobody in. Main
/// thread.
class AgentProgram {
  public:
    /// How long a machine that is about to sleep is kept waiting for fans that cannot be handed
    /// back at once.
    static constexpr std::chrono::seconds sleepPatience{3};
    /// The exit status that leaves fans as they were: another agent is to set them right.
    static constexpr int notHandedBack = 3;
    /// The exit status where the session's lock cannot be had, though no other agent holds it.
    static constexpr int withoutLock = 4;

    struct Ending {
        /// Called with the exit status when the agent ends by itself.
        std::function<void(int)> finish;
        /// Waits so long to be told to end; whether that is so. `end` is called afterwards.
        std::function<bool(std::chrono::milliseconds)> toldWithin;
    };

    /// Throws `AgentLock::Refused` and `AgentLock::Unavailable`, and `NoSuchMachine`. `center`
    /// outlives the object.
    AgentProgram(const AgentCommandLine::Run& run, NotificationCenter& center, Ending ending);
    ~AgentProgram();
    AgentProgram(const AgentProgram&) = delete;
    AgentProgram& operator=(const AgentProgram&) = delete;

    /// Around a sleep of the machine.
    void sleep();
    void wake();
    /// Whether the machine's sleep is told.
    void note(SleepNews news);
    /// Hands the fans back and says so; the agent ticks no more, and nothing takes the fans again.
    /// The exit status, also of an agent that has ended already.
    int end(std::string_view reason);

  private:
    /// Makes the agent, which publishes its state.
    void begin();
    void tick();
    /// Whether the agent still is the session's; otherwise it has ended.
    bool keepLock();
    /// Leaves the fans to whoever may come, and ends.
    void leave(const char* reason, int status);
    bool keepGuard();
    std::optional<std::string> reach();
    void logState();
    void logChannel(Channel channel);
    void log(AgentLog::Level level, std::string_view line);

    SystemClock clock;
    AgentLock lock;
    AgentLog messages;
    NotificationCenter& center;
    Ending ending;
    AgentStatus::Writing writing;
    AgentMachine machine;
    LateRegistry controller{machine.registry()};
    SMC smc{controller};
    std::unique_ptr<Preferences> preferences;
    /// Null where none is needed.
    std::unique_ptr<GuardProcess> guard;
    StateLog stateLog;
    /// Why the controller could not be reached.
    std::optional<std::string> missed;
    /// Null until the controller is reached.
    LoadReading load;
    /// Null where only the flag is kept.
    std::function<std::optional<std::string>(bool)> loginItem;
    ObserverToken channelObserver;
    /// From `begin` on.
    std::optional<Agent> agent;
    /// With which exit status.
    std::optional<int> ended;
    QElapsedTimer sinceTick;
    QTimer timer;
};

} // namespace tervale
