#include "Processes/AgentSession.h"
#include "Support/FakeLoginManager.h"
#include "Support/ProcessState.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

using namespace tervale;

namespace {

const QString commandName = "'com.velnor.tervale.command'";

class AgentProgramTest : public AgentSession {
  protected:
    /// Whether the agent says and posts nothing for a while, once what it was at is done.
    bool comesToRest(ChildProcess& agent) {
        for (int round = 0; round < 3; ++round) {
            const QByteArray before = agent.errors();
            const int statesBefore = states;
            wait(std::chrono::milliseconds(2500));
            if (agent.errors() == before && states == statesBefore)
                return true;
        }
        return false;
    }
};

} // namespace

TEST_F(AgentProgramTest, PrintsItsHelpAndVersionAndRefusesWrongUsage) {
    for (const char* option : {"--help", "-h"}) {
        ChildProcess help(TERVALE_AGENT, {option}, bus.environment());
        ASSERT_TRUE(help.ends());
        EXPECT_EQ(help.status(), 0);
        EXPECT_TRUE(help.output().startsWith("Usage: tervale-agent"));
    }
    ChildProcess version(TERVALE_AGENT, {"--version"}, bus.environment());
    ASSERT_TRUE(version.ends());
    EXPECT_TRUE(version.output().startsWith("tervale-agent "));
    ChildProcess wrong(TERVALE_AGENT, {"--frobnicate"}, bus.environment());
    ASSERT_TRUE(wrong.ends());
    EXPECT_EQ(wrong.status(), 2);
    EXPECT_EQ(wrong.errors().count('\n'), 1);
}

TEST_F(AgentProgramTest, DrivesTheFansAndHandsThemBackWhenToldToEnd) {
    const SimulatorProgram simulator(bus);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        AgentProcess agent(bus);
        ASSERT_TRUE(selectsMaximum()) << agent.errors().toStdString();
        QElapsedTimer sinceSignal;
        sinceSignal.start();
        agent.send(signal);
        ASSERT_TRUE(agent.ends());
        EXPECT_LT(sinceSignal.elapsed(), 2000);
        EXPECT_EQ(agent.status(), 0);
        EXPECT_TRUE(automatic());
        EXPECT_TRUE(eventually(
            [this] { return state.status == "The agent has ended. The fans are automatic."; }));
        EXPECT_EQ(agent.output(), "");
    }
}

TEST_F(AgentProgramTest, SaysNothingWhileNothingHappens) {
    const SimulatorProgram simulator(bus, {"--scenario", "idle"});
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    ASSERT_TRUE(eventually([&] { return agent.errors().contains("Selection: 100%"); }));
    EXPECT_TRUE(comesToRest(agent)) << agent.errors().toStdString();
}

TEST_F(AgentProgramTest, KeepsWhatItWasToldForTheNextTime) {
    const SimulatorProgram simulator(bus);
    {
        AgentProcess agent(bus);
        ASSERT_TRUE(selectsMaximum());
        bridge.send(command::SetLaunchAtLogin{true});
        ASSERT_TRUE(eventually([this] { return state.launchAtLogin; }));
        agent.send(SIGTERM);
        ASSERT_TRUE(agent.ends());
    }
    EXPECT_TRUE(std::filesystem::exists(bus.runtimeFolder().parent_path() / "config" / "tervale"));
    const AgentProcess agent(bus);
    EXPECT_TRUE(eventually([this] { return manual(); }));
    bridge.send(command::CheckForUpdates{});
    EXPECT_TRUE(eventually([this] { return state.status == "Tervale is up to date."; }));
    EXPECT_TRUE(state.launchAtLogin);
}

TEST_F(AgentProgramTest, RunsOnceASession) {
    const SimulatorProgram simulator(bus);
    AgentProcess first(bus);
    ASSERT_TRUE(selectsMaximum());
    const auto holder = AgentLock::holder(lock());
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->process, first.id());
    ASSERT_TRUE(holder->guard);
    EXPECT_FALSE(isGone(*holder->guard));
    for (const char* machine : {"--simulate", "--dry-run", "--socket=/absent"}) {
        ChildProcess second(TERVALE_AGENT, {machine}, bus.environment());
        ASSERT_TRUE(second.ends());
        EXPECT_EQ(second.status(), 1);
        EXPECT_EQ(second.errors(), "tervale-agent: An agent runs already: process " +
                                       QByteArray::number(first.id()) + ".\n");
    }
    EXPECT_TRUE(first.runs());
    EXPECT_TRUE(manual());
    first.send(SIGTERM);
    ASSERT_TRUE(first.ends());
    EXPECT_TRUE(eventually([&] { return isGone(*holder->guard); }));
    EXPECT_FALSE(AgentLock::holder(lock()));
}

TEST_F(AgentProgramTest, NeedsASessionBus) {
    QProcessEnvironment lonely = bus.environment();
    lonely.remove("DBUS_SESSION_BUS_ADDRESS");
    ChildProcess agent(TERVALE_AGENT, {"--simulate"}, lonely);
    ASSERT_TRUE(agent.ends());
    EXPECT_EQ(agent.status(), 1);
    EXPECT_EQ(agent.errors().count('\n'), 1);
}

TEST_F(AgentProgramTest, DrivesASimulatedMacWithinItsProcess) {
    const AgentProcess agent(bus, {"--simulate"});
    bridge.send(command::Select{maximum});
    EXPECT_TRUE(eventually([this] { return state.selection == maximum; }));
    EXPECT_EQ(state.status, std::nullopt);
    EXPECT_FALSE(AgentLock::holder(lock())->guard) << "the Mac goes with the process";
}

TEST_F(AgentProgramTest, WritesNothingInADryRunAndSaysSo) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus, {"--dry-run"});
    bridge.send(command::Select{maximum});
    ASSERT_TRUE(eventually([this] { return state.selection == maximum; }));
    EXPECT_EQ(state.status, "Dry run: nothing is written to the controller.");
    EXPECT_TRUE(automatic());
    agent.send(SIGTERM);
    ASSERT_TRUE(agent.ends());
    EXPECT_TRUE(eventually([this] {
        return state.status ==
               "The agent has ended. Dry run: nothing is written to the controller.";
    }));
    EXPECT_FALSE(agent.errors().contains("fans are automatic"));
}

TEST_F(AgentProgramTest, WaitsForAControllerThatComesLater) {
    ChildProcess agent(TERVALE_AGENT, {}, bus.environment());
    ASSERT_TRUE(eventually([&] { return agent.errors().contains("looked for once a second"); }));
    EXPECT_TRUE(agent.runs());
    bridge.send(command::CheckForUpdates{});
    EXPECT_TRUE(eventually([this] {
        return state.status == "The controller is out of reach. AppleSMC not found";
    })) << "it answers all the same";
    const SimulatorProgram simulator(bus);
    ASSERT_TRUE(eventually([&] { return agent.errors().contains("The controller is there."); }));
    EXPECT_TRUE(selectsMaximum());
}

TEST_F(AgentProgramTest, SaysInTheEndThatItNeverReachedAController) {
    AgentProcess agent(bus);
    agent.send(SIGTERM);
    ASSERT_TRUE(agent.ends());
    EXPECT_EQ(agent.status(), 0);
    EXPECT_TRUE(agent.errors().contains("The agent has ended. It never reached a controller."));
    EXPECT_FALSE(agent.errors().contains("automatic."));
}

TEST_F(AgentProgramTest, TakesItsLockAnewWhenTheFileIsRemoved) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    std::filesystem::remove(lock());
    ASSERT_TRUE(eventually([&] {
        const auto holder = AgentLock::holder(lock());
        return holder && holder->process == agent.id();
    }));
    EXPECT_EQ(AgentLock::holder(lock())->guard, guard());
    EXPECT_TRUE(manual());
}

TEST_F(AgentProgramTest, HandsTheFansBackAndEndsWhereAnotherHasTakenTheRemovedLock) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    // As one that starts at that moment does.
    const std::filesystem::path beside = lock().string() + ".other";
    const AgentLock other(beside);
    std::filesystem::rename(beside, lock());
    ASSERT_TRUE(agent.ends());
    EXPECT_EQ(agent.status(), 1);
    EXPECT_TRUE(agent.errors().endsWith("tervale-agent: An agent runs already: process " +
                                        QByteArray::number(QCoreApplication::applicationPid()) +
                                        ".\n"))
        << agent.errors().constData();
    EXPECT_TRUE(automatic());
    EXPECT_EQ(state.status, std::nullopt) << "it does not speak for the other one";
}

TEST_F(AgentProgramTest, LogsWhatItDecidesAndPostsAtTheLevelDebugAndSoDoesItsGuard) {
    const SimulatorProgram simulator(bus, {"--scenario", "idle"});
    AgentProcess agent(bus, {"--log-level", "debug"});
    ASSERT_TRUE(selectsMaximum());
    for (const char* line : {"Command: select", "Fans: 100%", "The state was posted.",
                             "The guard goes on duty.", "Selection: 100%"})
        EXPECT_TRUE(eventually([&] { return agent.errors().contains(line); })) << line;
    EXPECT_TRUE(comesToRest(agent)) << agent.errors().toStdString();
}

TEST_F(AgentProgramTest, StartsAnotherGuardWhenItsGuardIsKilled) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    const auto before = AgentLock::holder(lock())->guard;
    ASSERT_TRUE(before);
    ASSERT_EQ(::kill(static_cast<pid_t>(*before), SIGKILL), 0);
    QElapsedTimer sinceKill;
    sinceKill.start();
    ASSERT_TRUE(eventually([&] {
        const auto now = AgentLock::holder(lock())->guard;
        return now && now != before;
    }));
    // A tick until it is missed, and one more where it takes longer to come up than is waited for.
    EXPECT_LT(sinceKill.elapsed(), 3500);
    EXPECT_TRUE(eventually([this] { return manual(); }));
    agent.send(SIGKILL);
    ASSERT_TRUE(agent.ends());
    EXPECT_TRUE(eventually([this] { return automatic(); })) << "the new guard does its duty";
}

TEST_F(AgentProgramTest, KeepsItsGuardThroughManyCommandsAtOnce) {
    const SimulatorProgram simulator(bus);
    const AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    const auto before = guard();
    for (int i = 0; i < 2000; ++i)
        bridge.send(command::SetLaunchAtLogin{i % 2 == 0});
    bridge.send(command::StartTimer{maximum, 900});
    const int statesBefore = states;
    ASSERT_TRUE(eventually([&] { return state.timerAction == maximum; }));
    EXPECT_LT(states - statesBefore, 1000) << "what arrives together is confirmed together";
    EXPECT_EQ(guard(), before);
    EXPECT_TRUE(manual());
}

TEST_F(AgentProgramTest, LeavesTheFansToTheFirmwareWhereNoGuardCanStand) {
    const SimulatorProgram simulator(bus);
    // Whoever holds the guard's lock keeps every other guard from its duty.
    const auto held = FileLock::take(bus.runtimeFolder() / "tervale" / "guard.lock",
                                     std::chrono::milliseconds(0));
    const AgentProcess agent(bus);
    bridge.send(command::Select{maximum});
    ASSERT_TRUE(eventually([this] { return state.selection == maximum; }));
    EXPECT_EQ(state.status,
              "The fans are automatic, since no guard could be started that hands them back.");
    EXPECT_TRUE(automatic());
}

TEST_F(AgentProgramTest, HandsTheFansBackBeforeSleepAndTakesThemAfterIt) {
    FakeLoginManager manager(bus.connect());
    QProcessEnvironment environment = bus.environment();
    environment.insert("DBUS_SYSTEM_BUS_ADDRESS", bus.address());
    const SimulatorProgram simulator(bus);
    const AgentProcess agent(environment);
    ASSERT_TRUE(selectsMaximum());
    ASSERT_TRUE(eventually([&] { return manager.isDelayed(); }));
    emit manager.PrepareForSleep(true);
    ASSERT_TRUE(eventually([&] { return !manager.isDelayed(); }));
    EXPECT_TRUE(automatic()) << "before the machine is let sleep";
    emit manager.PrepareForSleep(false);
    EXPECT_TRUE(eventually([this] { return manual(); }));
    EXPECT_TRUE(eventually([&] { return manager.isDelayed(); }));
}

TEST_F(AgentProgramTest, HasTheMachineWaitForAControllerThatDoesNotAnswerBeforeSleep) {
    FakeLoginManager manager(bus.connect());
    QProcessEnvironment environment = bus.environment();
    environment.insert("DBUS_SYSTEM_BUS_ADDRESS", bus.address());
    const SimulatorProgram simulator(bus);
    AgentProcess agent(environment);
    ASSERT_TRUE(selectsMaximum());
    ASSERT_TRUE(eventually([&] { return manager.isDelayed(); }));
    simulator.send(SIGSTOP);
    emit manager.PrepareForSleep(true);
    QElapsedTimer waited;
    waited.start();
    ASSERT_TRUE(eventually([&] { return waited.elapsed() > 1800; }));
    EXPECT_TRUE(manager.isDelayed());
    simulator.send(SIGCONT);
    ASSERT_TRUE(eventually([&] { return !manager.isDelayed(); }));
    EXPECT_TRUE(automatic()) << "before the machine is let sleep";
    emit manager.PrepareForSleep(false);
    ASSERT_TRUE(eventually([this] { return manual(); }));
    ASSERT_TRUE(eventually([&] { return manager.isDelayed(); }));
    simulator.send(SIGSTOP);
    waited.start();
    emit manager.PrepareForSleep(true);
    ASSERT_TRUE(eventually([&] { return !manager.isDelayed(); }));
    EXPECT_GT(waited.elapsed(), 2500);
    EXPECT_LT(waited.elapsed(), 6500) << "but not for ever";
    EXPECT_TRUE(eventually(
        [&] { return agent.errors().contains("could not be handed back before the sleep"); }));
    simulator.send(SIGCONT);
}

TEST_F(AgentProgramTest, EndsWithinTwoSecondsWhileItTriesToHandBackBeforeSleep) {
    FakeLoginManager manager(bus.connect());
    QProcessEnvironment environment = bus.environment();
    environment.insert("DBUS_SYSTEM_BUS_ADDRESS", bus.address());
    const SimulatorProgram simulator(bus);
    AgentProcess agent(environment);
    ASSERT_TRUE(selectsMaximum());
    ASSERT_TRUE(eventually([&] { return manager.isDelayed(); }));
    simulator.send(SIGSTOP);
    emit manager.PrepareForSleep(true);
    ASSERT_TRUE(eventually([&] { return agent.errors().contains("The machine goes to sleep."); }));
    QElapsedTimer asked;
    asked.start();
    agent.send(SIGTERM);
    ASSERT_TRUE(agent.ends());
    EXPECT_LT(asked.elapsed(), 2000);
    EXPECT_EQ(agent.status(), 3);
    simulator.send(SIGCONT);
    EXPECT_TRUE(eventually([this] { return automatic(); })) << "the guard goes on trying";
}

TEST_F(AgentProgramTest, WarnsOnceWhereNothingTellsOfSleep) {
    const SimulatorProgram simulator(bus);
    QProcessEnvironment environment = bus.environment();
    for (const QString& systemBus : {QString("unix:path=/absent"), bus.address()}) {
        environment.insert("DBUS_SYSTEM_BUS_ADDRESS", systemBus);
        AgentProcess agent(environment);
        const auto warnings = [&] {
            return agent.errors().count("does not tell of the machine's sleep");
        };
        ASSERT_TRUE(eventually([&] { return warnings() == 1; }));
        ASSERT_TRUE(selectsMaximum());
        EXPECT_EQ(warnings(), 1);
    }
}

TEST_F(AgentProgramTest, EndsAtOnceWithoutItsBusWhereItsSessionIsOver) {
    PrivateBus system;
    FakeLoginManager manager(system.connect());
    QProcessEnvironment environment = bus.environment();
    environment.insert("DBUS_SYSTEM_BUS_ADDRESS", system.address());
    const SimulatorProgram simulator(bus);
    AgentProcess agent(environment);
    ASSERT_TRUE(selectsMaximum());
    ASSERT_TRUE(eventually([&] { return manager.sessionsAsked == 1; }));
    bus.stop();
    QElapsedTimer waited;
    waited.start();
    ASSERT_TRUE(eventually([&] { return waited.elapsed() > 1500; }));
    EXPECT_TRUE(agent.runs()) << "the bus alone is not the session";
    EXPECT_TRUE(eventually(
        [&] { return agent.errors().contains("The session bus is gone. It is looked for."); }));
    manager.session.state = "closing";
    ASSERT_TRUE(agent.ends());
    EXPECT_LT(waited.elapsed(), 6000);
    EXPECT_EQ(agent.status(), 0);
    EXPECT_TRUE(agent.errors().contains("The session is over."));
    EXPECT_TRUE(automatic());
}

TEST_F(AgentProgramTest, EndsWhereItsSessionIsOverThoughItsBusIsThere) {
    PrivateBus system;
    FakeLoginManager manager(system.connect());
    QProcessEnvironment environment = bus.environment();
    environment.insert("DBUS_SYSTEM_BUS_ADDRESS", system.address());
    const SimulatorProgram simulator(bus);
    AgentProcess agent(environment);
    ASSERT_TRUE(selectsMaximum());
    ASSERT_TRUE(eventually([&] { return manager.sessionsAsked == 1; }));
    manager.tellOfSession();
    PrivateBus::settle(connection);
    EXPECT_TRUE(agent.runs());
    manager.session.state = "closing";
    ASSERT_TRUE(eventually([&] {
        manager.tellOfSession();
        return !agent.runs();
    }));
    EXPECT_EQ(agent.status(), 0);
    EXPECT_TRUE(agent.errors().contains("The session is over."));
    EXPECT_TRUE(automatic());
    EXPECT_TRUE(eventually(
        [this] { return state.status == "The agent has ended. The fans are automatic."; }));
}

TEST_F(AgentProgramTest, EndsWithAStatusOfItsOwnWhereItsLockCannotBeHad) {
    const SimulatorProgram simulator(bus);
    AgentProcess agent(bus);
    ASSERT_TRUE(selectsMaximum());
    // At once, so that it finds no moment in which it could make the file anew.
    const std::filesystem::path beside = lock().string() + ".other";
    std::filesystem::create_symlink("absent", beside);
    std::filesystem::rename(beside, lock());
    ASSERT_TRUE(agent.ends());
    EXPECT_EQ(agent.status(), 4);
    EXPECT_TRUE(agent.errors().contains("tervale-agent: Cannot lock '"))
        << agent.errors().constData();
    EXPECT_TRUE(automatic());
    ChildProcess next(TERVALE_AGENT, {}, bus.environment());
    ASSERT_TRUE(next.ends());
    EXPECT_EQ(next.status(), 4);
    EXPECT_TRUE(next.errors().startsWith("tervale-agent: Cannot lock '"));
}

TEST_F(AgentProgramTest, JudgesAProfileByTheLoadOfTheMacThatItDrives) {
    const Profile byLoad{UUID::random(), "Load",
                         kind::Load{Curve{{{0, 0.2}, {40, 0.2}, {41, 1}, {100, 1}}}}};
    // Whatever the load of the test's own machine is, it is not both.
    for (const auto& [scenario, speed] : {std::pair("idle", 0.2), std::pair("render", 1.0)}) {
        SCOPED_TRACE(scenario);
        const SimulatorProgram simulator(bus, {"--scenario", scenario});
        AgentProcess agent(bus);
        bridge.send(command::SaveProfiles{{byLoad}});
        bridge.send(command::Select{action::Profile{byLoad.id}});
        ASSERT_TRUE(eventually([this] { return manual(); }));
        const auto isAsWanted = [&, wanted = speed] {
            const Fan fan = controller().fan(0);
            return std::abs((fan.target - fan.min) / (fan.max - fan.min) - wanted) < 0.01;
        };
        ASSERT_TRUE(eventually(isAsWanted));
        QElapsedTimer watched;
        watched.start();
        EXPECT_TRUE(eventually([&] {
            EXPECT_TRUE(isAsWanted());
            return watched.elapsed() > 4000;
        }));
        agent.send(SIGTERM);
        ASSERT_TRUE(agent.ends());
        smc.reset();
    }
}

TEST_F(AgentProgramTest, BeginsEachLineWithItsLevelInTheJournalToTheLast) {
    const SimulatorProgram simulator(bus);
    const AgentProcess first(bus);
    // As a service manager does whose journal is a file.
    const std::filesystem::path journal = bus.runtimeFolder() / "journal";
    QProcessEnvironment environment = bus.environment();
    environment.insert("JOURNAL", QString::fromStdString(journal.string()));
    ChildProcess second(
        "/bin/sh",
        {"-c",
         "exec 2>\"$JOURNAL\"; export JOURNAL_STREAM=$(stat -L -c %d:%i /dev/fd/2); "
         "exec \"$0\"",
         TERVALE_AGENT},
        environment);
    ASSERT_TRUE(second.ends());
    EXPECT_EQ(second.status(), 1);
    std::string text;
    std::getline(std::ifstream(journal), text);
    EXPECT_EQ(text, "<3>An agent runs already: process " + std::to_string(first.id()) + ".");
}

TEST_F(AgentProgramTest, AnswersACommandFromAnothersTool) {
    const AgentProcess agent(bus, {"--simulate"});
    const auto monitor = bus.monitor();
    ASSERT_TRUE(
        bus.emitWithTool({commandName, "'{\"select\":{\"_0\":{\"fixed\":{\"_0\":0.5}}}}'"}));
    EXPECT_TRUE(monitor->says("string \"com.velnor.tervale.state\"\n   string "
                              "\"{\"selection\":{\"fixed\":{\"_0\":0.5}}"))
        << monitor->output().constData();
}

TEST_F(AgentProgramTest, AnswersBusctlAsWell) {
    const AgentProcess agent(bus, {"--simulate"});
    const auto monitor = bus.monitor();
    ChildProcess tool("busctl",
                      {"--address=" + bus.address(), "emit", "/com/velnor/tervale",
                       "com.velnor.tervale.NotificationCenter", "Posted", "ss",
                       "com.velnor.tervale.command", "{\"setLaunchAtLogin\":{\"_0\":true}}"},
                      bus.environment());
    ASSERT_TRUE(tool.ends());
    ASSERT_EQ(tool.status(), 0) << tool.errors().constData();
    EXPECT_TRUE(monitor->says("\"launchAtLogin\":true"));
}

TEST_F(AgentProgramTest, GoesOnAfterRubbishOnTheBus) {
    const AgentProcess agent(bus, {"--simulate"});
    const auto monitor = bus.monitor();
    for (const QStringList& arguments : std::vector<QStringList>{
             {},
             {commandName},
             {commandName, "uint32 7"},
             {commandName, "'{'"},
             {commandName, "'{\"select\":{}}'"},
             {commandName, "'{\"startTimer\":{\"_0\":{\"automatic\":{}},\"_1\":\"x\"}}'"}})
        ASSERT_TRUE(bus.emitWithTool(arguments));
    EXPECT_FALSE(monitor->output().contains("tervale.state"));
    ASSERT_TRUE(bus.emitWithTool({commandName, "'{\"requestState\":{}}'"}));
    EXPECT_TRUE(monitor->says("tervale.state"));
}
