#include "Processes/AgentSession.h"
#include "Support/ProcessState.h"

#include <QElapsedTimer>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <vector>

using namespace tervale;

namespace {

void killProcess(std::optional<std::int64_t> process) {
    ASSERT_TRUE(process);
    ASSERT_EQ(::kill(static_cast<pid_t>(*process), SIGKILL), 0);
}

/// The number that makes a course of events; that of an earlier run if $TERVALE_SEED says it.
unsigned seed() {
    const char* given = std::getenv("TERVALE_SEED");
    return given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device()();
}

class NeverStuckTest : public AgentSession {
  protected:
    /// How long it takes until every fan is automatic, in milliseconds.
    qint64 timeUntilAutomatic() {
        QElapsedTimer waited;
        waited.start();
        EXPECT_TRUE(eventually([this] { return automatic(); }));
        return waited.elapsed();
    }
    /// The lock without which no guard goes on duty; none where no guard stood, or another was
    /// faster.
    std::optional<FileLock> killGuardAndKeepOthersAway() {
        const auto standing = guard();
        if (!standing)
            return std::nullopt;
        killed = *standing;
        killProcess(killed);
        return FileLock::take(bus.runtimeFolder() / "tervale" / "guard.lock",
                              std::chrono::milliseconds(500));
    }
    /// Whether the next guard that the agent starts could be stopped before it reports.
    bool stopsNextGuard(const ChildProcess& agent) const {
        pid_t child = 0;
        return eventually([&] {
                   child = childOf(static_cast<pid_t>(agent.id()));
                   return child != 0;
               }) &&
               ::kill(child, SIGSTOP) == 0;
    }
    /// One that was not killed; 0 if there is none.
    pid_t childOf(pid_t parent) const {
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
            const auto process =
                static_cast<pid_t>(std::strtol(entry.path().filename().c_str(), nullptr, 10));
            const auto now = process > 0 && process != killed ? stateOf(process) : std::nullopt;
            if (now && now->parent == parent)
                return process;
        }
        return 0;
    }
    /// "Max" for a while, which no agent remembers.
    bool startsTimer() {
        return obeys(command::StartTimer{maximum, 900},
                     [this] { return state.timerAction == maximum && manual(); });
    }

    /// The guard that was.
    std::int64_t killed = 0;
};

class NeverStuckAtAnyMomentTest : public NeverStuckTest, public testing::WithParamInterface<int> {
  protected:
    /// A list like no other, so that the agent writes it.
    std::vector<Profile> anotherList() {
        return {{UUID::random(), "List " + std::to_string(++lists), kind::Load{}}};
    }
    /// What a person may do at any moment.
    void sendSomething() {
        switch (random() % 4) {
        case 0:
            bridge.send(command::StartTimer{maximum, 900});
            break;
        case 1:
            bridge.send(command::SaveProfiles{anotherList()});
            break;
        case 2:
            bridge.send(command::CancelTimer{});
            break;
        default:
            bridge.send(command::Select{maximum});
        }
    }
    void sendFor(std::chrono::milliseconds time) {
        QElapsedTimer sent;
        sent.start();
        while (sent.elapsed() < time.count()) {
            sendSomething();
            wait(std::chrono::milliseconds(10));
        }
    }
    std::chrono::milliseconds timeUpTo(unsigned most) {
        return std::chrono::milliseconds(random() % (most + 1));
    }
    /// An agent that drives the fans at the maximum from its start.
    void storeMaximum() {
        AgentProcess first(bus);
        ASSERT_TRUE(selectsMaximum());
        first.send(SIGTERM);
        ASSERT_TRUE(first.ends());
    }
    std::unique_ptr<ChildProcess> startAgent() {
        return std::make_unique<ChildProcess>(TERVALE_AGENT, QStringList{"--log-level", "error"},
                                              bus.environment());
    }
    void kill(ChildProcess& agent) {
        agent.send(SIGKILL);
        EXPECT_LT(timeUntilAutomatic(), 1000);
        ASSERT_TRUE(agent.ends());
        // What it was about to write comes no more.
        EXPECT_TRUE(automatic());
    }

    const SimulatorProgram simulator{bus, {"--sensors", "12", "--scenario", "idle"}};
    std::mt19937 random{[] {
        const unsigned number = seed();
        std::cout << "TERVALE_SEED=" << number << '\n' << std::flush;
        return number;
    }()};
    int lists = 0;
};

} // namespace

// A hundred kills in all.
constexpr int killsInAQuarter = 25;
INSTANTIATE_TEST_SUITE_P(Quarters, NeverStuckAtAnyMomentTest, testing::Range(0, 4));

TEST_P(NeverStuckAtAnyMomentTest, HandsTheFansBackWithinASecondOfAKillDuringMax) {
    storeMaximum();
    int seenManual = 0;
    for (int number = 0; number < killsInAQuarter; ++number) {
        SCOPED_TRACE(number);
        const auto agent = startAgent();
        ASSERT_TRUE(eventually([this] { return manual(); }));
        sendFor(timeUpTo(100));
        // The selection stays, so the fans are manual at every moment from here on.
        ASSERT_TRUE(manual());
        ++seenManual;
        // Of what is sent now something may be under way.
        if (number % 2 == 0)
            bridge.send(command::SaveProfiles{anotherList()});
        wait(timeUpTo(5));
        kill(*agent);
    }
    EXPECT_EQ(seenManual, killsInAQuarter);
    EXPECT_GE(lists, killsInAQuarter / 2) << "hardly any list was saved";
    // The last list is whole, or the one before it.
    const AgentProcess last(bus);
    state = {};
    ASSERT_TRUE(obeys(command::RequestState{}, [this] {
        return manual() && state.selection == maximum && !state.status;
    })) << state.status.value_or("the maximum is not selected");
    EXPECT_EQ(state.profiles.size(), 1U);
}

TEST_P(NeverStuckAtAnyMomentTest, LeavesTheFansAutomaticWhenTheAgentIsKilledWhileItStarts) {
    storeMaximum();
    // How long a start takes here and now.
    QElapsedTimer start;
    start.start();
    {
        const auto agent = startAgent();
        ASSERT_TRUE(eventually([this] { return manual(); }));
        kill(*agent);
    }
    const auto usual = static_cast<unsigned>(start.elapsed());
    // Before and after they take the fans, some of each.
    int taken = 0;
    int untaken = 0;
    for (int number = 0; number < 60 && (number < 5 || taken < 2 || untaken < 2); ++number) {
        SCOPED_TRACE(number);
        const auto agent = startAgent();
        // Some certainly do, and some certainly do not.
        if (number % 4 == 0)
            ASSERT_TRUE(eventually([this] { return manual(); }));
        else if (number % 4 != 1)
            sendFor(timeUpTo(2 * usual));
        ++(manual() ? taken : untaken);
        kill(*agent);
    }
    EXPECT_GE(taken, 2);
    EXPECT_GE(untaken, 2);
}

TEST_F(NeverStuckTest, HandsTheFansBackWithinASecondOfACrash) {
    const SimulatorProgram simulator(bus);
    for (const int signal : {SIGSEGV, SIGABRT, SIGBUS, SIGKILL}) {
        SCOPED_TRACE(signal);
        AgentProcess agent(bus);
        ASSERT_TRUE(selectsMaximum());
        // A crash leaves no file behind.
        const rlimit none{0, 0};
        ASSERT_EQ(::prlimit(static_cast<pid_t>(agent.id()), RLIMIT_CORE, &none, nullptr), 0);
        agent.send(signal);
        EXPECT_LT(timeUntilAutomatic(), 1000);
        ASSERT_TRUE(agent.ends());
        EXPECT_NE(agent.status(), 0);
        EXPECT_TRUE(automatic());
    }
}

TEST_F(NeverStuckTest, IsToldToEndAsSoonAsItHasTakenTheFansAndHandsThemBackItself) {
    const SimulatorProgram simulator(bus, {"--sensors", "12", "--scenario", "idle"});
    {
        AgentProcess first(bus);
        ASSERT_TRUE(selectsMaximum());
        first.send(SIGTERM);
        ASSERT_TRUE(first.ends());
    }
    for (int start = 0; start < 15; ++start) {
        ChildProcess agent(TERVALE_AGENT, {}, bus.environment());
        ASSERT_TRUE(eventually([this] { return manual(); }));
        agent.send(SIGTERM);
        ASSERT_TRUE(agent.ends());
        EXPECT_EQ(agent.status(), 0);
        EXPECT_TRUE(automatic());
    }
}

TEST_F(NeverStuckTest, KillsAnAgentThatIsStoppedAndHandsTheFansBack) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    QElapsedTimer stopped;
    stopped.start();
    agent.send(SIGSTOP);
    wait(std::chrono::seconds(7));
    EXPECT_TRUE(manual()) << "a short halt is none of the guard's business";
    ASSERT_TRUE(eventually([this] { return automatic(); }));
    EXPECT_GE(stopped.elapsed(), 9000);
    EXPECT_LT(stopped.elapsed(), 13000);
    wait(std::chrono::milliseconds(15000 - stopped.elapsed()));
    agent.send(SIGCONT);
    ASSERT_TRUE(agent.ends());
    EXPECT_EQ(agent.status(), -1);
    EXPECT_TRUE(automatic());
    const AgentProcess next(bus);
    EXPECT_TRUE(eventually([this] { return manual(); })) << "the next one takes them again";
}

TEST_F(NeverStuckTest, LeavesTheFansToAnAgentThatIsStoppedForAMoment) {
    const SimulatorProgram simulator(bus);
    const AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    for (int halt = 0; halt < 2; ++halt) {
        agent.send(SIGSTOP);
        wait(std::chrono::seconds(5));
        agent.send(SIGCONT);
        wait(std::chrono::seconds(1));
        EXPECT_TRUE(manual());
        EXPECT_TRUE(agent.runs());
    }
}

TEST_F(NeverStuckTest, CannotMendThatAgentAndGuardAreKilledAtOnceUntilAnAgentIsStarted) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(startsTimer());
    // So that it starts no other guard.
    agent.send(SIGSTOP);
    killProcess(guard());
    agent.send(SIGKILL);
    ASSERT_TRUE(agent.ends());
    wait(std::chrono::seconds(1));
    EXPECT_TRUE(manual()) << "there is nobody who could hand them back";
    const AgentProcess next(bus);
    EXPECT_TRUE(eventually([this] { return automatic(); }));
}

TEST_F(NeverStuckTest, DrivesTheFansAgainOnceTheControllersSocketIsBack) {
    auto simulator = std::make_unique<SimulatorProgram>(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    simulator.reset();
    ASSERT_TRUE(eventually([this] { return state.status.has_value(); }));
    simulator = std::make_unique<SimulatorProgram>(bus);
    ASSERT_TRUE(eventually([this] { return !automatic() && manual(); }));
    EXPECT_TRUE(eventually([this] { return !state.status; }));
    // The guard's own connection is a new one as well.
    agent.send(SIGKILL);
    EXPECT_LT(timeUntilAutomatic(), 1000);
}

TEST_F(NeverStuckTest, HandsTheFansBackThoughTheControllerDoesNotAnswerAtFirst) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    simulator.send(SIGSTOP);
    agent.send(SIGKILL);
    ASSERT_TRUE(agent.ends());
    wait(std::chrono::seconds(3));
    simulator.send(SIGCONT);
    EXPECT_TRUE(eventually([this] { return automatic(); }));
}

TEST_F(NeverStuckTest, EndsWithinTwoSecondsThoughTheControllerDoesNotAnswer) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    simulator.send(SIGSTOP);
    QElapsedTimer asked;
    asked.start();
    agent.send(SIGTERM);
    ASSERT_TRUE(agent.ends());
    EXPECT_LT(asked.elapsed(), 2000);
    EXPECT_EQ(agent.status(), 3) << "another start would mend it";
    EXPECT_TRUE(agent.errors().contains("The fans could not be handed back"));
    simulator.send(SIGCONT);
    EXPECT_TRUE(eventually([this] { return automatic(); })) << "the guard goes on trying";
}

TEST_F(NeverStuckTest, ReplacesAGuardThatIsStoppedWithinThreeTicks) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    const auto stopped = guard();
    ASSERT_TRUE(stopped);
    ASSERT_EQ(::kill(static_cast<pid_t>(*stopped), SIGSTOP), 0);
    QElapsedTimer sinceStop;
    sinceStop.start();
    ASSERT_TRUE(eventually([&] { return guard() && guard() != stopped; }));
    EXPECT_LT(sinceStop.elapsed(), 4500) << "two signs unanswered, and a tick to find out";
    EXPECT_TRUE(isGone(*stopped)) << "nobody stands beside the new one";
    EXPECT_TRUE(manual());
    agent.send(SIGKILL);
    EXPECT_LT(timeUntilAutomatic(), 1000);
}

TEST_F(NeverStuckTest, HandsTheFansBackAtTheTickThatFindsNoGuardAndNoOtherComes) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    QElapsedTimer sinceKill;
    sinceKill.start();
    auto held = killGuardAndKeepOthersAway();
    ASSERT_TRUE(held);
    ASSERT_TRUE(stopsNextGuard(agent));
    ASSERT_TRUE(eventually([this] { return automatic(); }));
    EXPECT_LT(sinceKill.elapsed(), 1900) << "a tick, and no wait for a guard that is stopped";
    EXPECT_TRUE(eventually([this] {
        return state.status ==
               "The fans are automatic, since no guard could be started that hands them back.";
    }));
    EXPECT_EQ(state.selection, maximum);
    held.reset();
    EXPECT_TRUE(eventually([this] { return manual() && guard(); })) << "it goes on trying";
    EXPECT_TRUE(eventually([this] { return !state.status; }));
    agent.send(SIGKILL);
    EXPECT_LT(timeUntilAutomatic(), 1000);
}

TEST_F(NeverStuckTest, EndsWithinTwoSecondsWhileItsNextGuardIsStopped) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    const auto held = killGuardAndKeepOthersAway();
    ASSERT_TRUE(held);
    ASSERT_TRUE(stopsNextGuard(agent));
    QElapsedTimer asked;
    asked.start();
    agent.send(SIGTERM);
    ASSERT_TRUE(agent.ends());
    EXPECT_LT(asked.elapsed(), 2000);
    EXPECT_EQ(agent.status(), 0);
    EXPECT_TRUE(automatic());
}

TEST_F(NeverStuckTest, EndsWithinTwoSecondsThoughItsGuardIsStopped) {
    const SimulatorProgram simulator(bus);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        AgentProcess agent(bus);
        ASSERT_TRUE(selectsMaximum());
        const auto stopped = guard();
        ASSERT_TRUE(stopped);
        ASSERT_EQ(::kill(static_cast<pid_t>(*stopped), SIGSTOP), 0);
        QElapsedTimer asked;
        asked.start();
        agent.send(signal);
        ASSERT_TRUE(agent.ends());
        EXPECT_LT(asked.elapsed(), 2000);
        EXPECT_EQ(agent.status(), 0);
        EXPECT_TRUE(automatic());
        EXPECT_TRUE(eventually([&] { return isGone(*stopped); }));
    }
}

TEST_F(NeverStuckTest, EndsWithinTwoSecondsThoughItsGuardCannotBeBuried) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    const auto held = guard();
    ASSERT_TRUE(held);
    // One who watches a process keeps its parent from taking note of its end.
    const auto process = static_cast<pid_t>(*held);
    if (::ptrace(PTRACE_SEIZE, process, nullptr, nullptr) != 0)
        GTEST_SKIP() << "this system lets nobody watch a process";
    QElapsedTimer asked;
    asked.start();
    agent.send(SIGTERM);
    const bool ended = eventually([&] { return !agent.runs() || asked.elapsed() > 5000; });
    const qint64 time = asked.elapsed();
    ::waitpid(process, nullptr, 0);
    EXPECT_TRUE(ended);
    EXPECT_LT(time, 2000);
    ASSERT_TRUE(agent.ends());
    EXPECT_EQ(agent.status(), 0);
    EXPECT_TRUE(automatic());
}
