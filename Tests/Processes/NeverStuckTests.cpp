#include "Processes/AgentSession.h"

#include <QElapsedTimer>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <random>

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
    void wait(std::chrono::milliseconds time) {
        QElapsedTimer waited;
        waited.start();
        eventually([&] { return waited.elapsed() >= time.count(); });
    }
    /// How long it takes until every fan is automatic, in milliseconds.
    qint64 timeUntilAutomatic() {
        QElapsedTimer waited;
        waited.start();
        EXPECT_TRUE(eventually([this] { return automatic(); }));
        return waited.elapsed();
    }
    /// "Max" for a while, which no agent remembers.
    bool startsTimer() {
        bridge.send(command::StartTimer{maximum, 900});
        return eventually([this] { return state.timerAction == maximum && manual(); });
    }
};

class NeverStuckAtAnyMomentTest : public NeverStuckTest, public testing::WithParamInterface<int> {
  protected:
    /// What a person may do at any moment.
    void sendSomething() {
        switch (random() % 4) {
        case 0:
            bridge.send(command::StartTimer{maximum, 900});
            break;
        case 1:
            bridge.send(command::SaveProfiles{state.profiles});
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

    std::mt19937 random;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Quarters, NeverStuckAtAnyMomentTest, testing::Range(0, 4));

TEST_P(NeverStuckAtAnyMomentTest, HandsTheFansBackWithinASecondOfAKillDuringMax) {
    const unsigned number = seed();
    std::cout << "TERVALE_SEED=" << number << '\n' << std::flush;
    random.seed(number);
    const SimulatorProgram simulator(bus, {"--sensors", "12", "--scenario", "idle"});
    {
        AgentProcess first(bus);
        ASSERT_TRUE(selectsMaximum());
        first.send(SIGTERM);
        ASSERT_TRUE(first.ends());
    }
    int taken = 0;
    for (int kill = 0; kill < 25; ++kill) {
        ChildProcess agent(TERVALE_AGENT, {"--log-level", "error"}, bus.environment());
        // Every other one dies while it starts, or soon after.
        if (kill % 2 == 0) {
            ASSERT_TRUE(eventually([this] { return manual(); }));
        }
        sendFor(timeUpTo(kill % 2 == 0 ? 100 : 200));
        taken += manual() ? 1 : 0;
        agent.send(SIGKILL);
        EXPECT_LT(timeUntilAutomatic(), 1000) << "kill " << kill;
        ASSERT_TRUE(agent.ends());
        // What it was about to write comes no more.
        EXPECT_TRUE(automatic());
    }
    EXPECT_GE(taken, 13) << "the fans were hardly ever taken when the agent was killed";
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
    EXPECT_LT(asked.elapsed(), 2500);
    EXPECT_EQ(agent.status(), 1);
    EXPECT_TRUE(agent.errors().contains("The fans could not be handed back"));
    simulator.send(SIGCONT);
    EXPECT_TRUE(eventually([this] { return automatic(); })) << "the guard goes on trying";
}
