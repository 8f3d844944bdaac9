#include "Platform/AgentLock.h"
#include "Platform/Linux/DBusNotificationCenter.h"
#include "Processes/Programs.h"
#include "Profiles/Bridge.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

using namespace tervale;

namespace {

class CtlProgramTest : public testing::Test {
  protected:
    /// Exit status of `tervalectl`; what it wrote is in `output` and `errors`.
    int run(const QStringList& arguments) {
        ChildProcess program(QStringLiteral(TERVALE_CTL), arguments, bus.environment());
        EXPECT_TRUE(program.ends()) << arguments.join(' ').toStdString();
        output = program.output();
        errors = program.errors();
        return program.status();
    }

    PrivateBus bus;
    QByteArray output;
    QByteArray errors;
};

} // namespace

TEST_F(CtlProgramTest, ReadsTheMacOfAnotherProcess) {
    const SimulatorProgram simulator(bus, {"--fans", "3", "--sensors", "20"});
    EXPECT_EQ(run({"fans"}), 0);
    EXPECT_EQ(output.count('\n'), 4);
    EXPECT_EQ(run({"sensors", "--json"}), 0);
    EXPECT_EQ(output.count("\"key\""), 20);
    EXPECT_EQ(run({"monitor", "--json", "--count", "2", "--interval", "0.05"}), 0);
    EXPECT_EQ(output.count('\n'), 2);
    EXPECT_EQ(errors, "");
}

TEST_F(CtlProgramTest, RecordsTheLoadOfTheMacOfAnotherProcess) {
    const auto load = [this](const char* scenario) {
        const SimulatorProgram simulator(bus, {"--scenario", scenario});
        EXPECT_EQ(run({"monitor", "--json", "--count", "1"}), 0);
        const auto from = output.indexOf("\"load\":");
        EXPECT_GE(from, 0) << output.toStdString();
        return std::strtod(output.constData() + from + 7, nullptr);
    };
    // This machine is as busy both times.
    EXPECT_GT(load("render"), 60);
    EXPECT_LT(load("idle"), 30);
}

TEST_F(CtlProgramTest, ReadsTheMacOnAnotherSocket) {
    const QString socket = QString::fromStdString(bus.runtimeFolder() / "other.socket");
    const SimulatorProgram simulator(bus, {"--fans", "1", "--socket", socket});
    EXPECT_EQ(run({"fans"}), 1);
    EXPECT_EQ(run({"fans", "--socket", socket}), 0);
    EXPECT_EQ(output.count('\n'), 2);
}

TEST_F(CtlProgramTest, SpeaksWithTheAgent) {
    const MacWithAgent programs(bus);
    EXPECT_EQ(run({"select", "100%"}), 0) << errors.toStdString();
    EXPECT_EQ(run({"timer", "40%", "10m", "--json"}), 0);
    EXPECT_TRUE(output.contains(R"("selection":{"fixed":{"_0":1}},"timerAction":)"));
    EXPECT_EQ(run({"cancel-timer"}), 0);
    EXPECT_EQ(run({"launch-at-login", "on"}), 0);
    EXPECT_EQ(run({"check-for-updates"}), 0);
    EXPECT_EQ(run({"select", "profile", "Nobody's"}), 1);
    EXPECT_EQ(run({"state"}), 0);
    EXPECT_TRUE(output.contains("Launch at login  on\n")) << output.toStdString();
    EXPECT_TRUE(output.contains("Timer            none\n")) << output.toStdString();
    EXPECT_TRUE(output.contains("Selection        Max\n")) << output.toStdString();
}

TEST_F(CtlProgramTest, LooksForTheGuardThatTheAgentNames) {
    const MacWithAgent programs(bus);
    ASSERT_EQ(run({"select", "100%"}), 0) << errors.toStdString();
    // The guard may come a tick after the answer.
    EXPECT_TRUE(eventually([&] {
        return run({"agent", "--json"}) == 0 && output.contains(R"("guarded":true)");
    })) << output.toStdString();
    EXPECT_EQ(run({"doctor"}), 0) << output.toStdString();
    const auto holder = AgentLock::holder(bus.runtimeFolder() / "tervale" / "agent.lock");
    ASSERT_TRUE(holder && holder->guard);
    // So that it starts no other guard.
    programs.agent.send(SIGSTOP);
    ASSERT_EQ(::kill(static_cast<pid_t>(*holder->guard), SIGKILL), 0);
    EXPECT_TRUE(eventually([&] {
        return run({"agent", "--json", "--timeout", "0.1"}) == 3 &&
               output.contains(R"("guarded":false)");
    })) << output.toStdString();
    EXPECT_EQ(run({"doctor", "--timeout", "0.1"}), 1);
    EXPECT_TRUE(output.contains(" is gone")) << output.toStdString();
    programs.agent.send(SIGCONT);
}

TEST_F(CtlProgramTest, SendsImportedProfilesAsOneCommand) {
    const MacWithAgent programs(bus);
    const QString file = QString::fromStdString(bus.runtimeFolder() / "profiles.json");
    EXPECT_EQ(run({"profiles", "export", file}), 0);
    EXPECT_EQ(run({"profiles", "validate", file}), 0);
    const auto monitor = bus.monitor();
    EXPECT_EQ(run({"profiles", "import", file}), 0) << errors.toStdString();
    EXPECT_TRUE(monitor->says("saveProfiles"));
    EXPECT_EQ(monitor->output().count("saveProfiles"), 1);
}

TEST_F(CtlProgramTest, TellsHowItEnded) {
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_TRUE(output.startsWith("Usage: tervalectl "));
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_TRUE(output.startsWith("tervalectl "));
    EXPECT_EQ(run({"frobnicate"}), 2);
    EXPECT_EQ(errors, "tervalectl: There is no command 'frobnicate'. See --help.\n");
    EXPECT_EQ(run({"state", "--timeout", "0.1"}), 3);
    EXPECT_EQ(errors, "tervalectl: The agent did not answer within 0.1 s.\n");
    EXPECT_EQ(run({"fans"}), 1);
    EXPECT_EQ(errors.count('\n'), 1);
}

TEST_F(CtlProgramTest, KeepsTheExportedFileOnAFullDisk) {
    const QString script = QStringLiteral(
        R"(mount -t tmpfs -o size=8k none "$1" || exit 77
           printf old >"$1/p.json"; head -c 100000 /dev/zero >"$1/rest" 2>/dev/null
           "$2" profiles export --simulate "$1/p.json"; echo "$?"; cat "$1/p.json"; ls -A "$1")");
    ChildProcess program(QStringLiteral("unshare"),
                         {"--user", "--map-root-user", "--mount", "sh", "-c", script, "sh",
                          QString::fromStdString(bus.runtimeFolder()), QStringLiteral(TERVALE_CTL)},
                         bus.environment());
    ASSERT_TRUE(program.ends());
    if (program.status() != 0)
        GTEST_SKIP() << "no file system can be mounted here: " << program.errors().toStdString();
    EXPECT_EQ(program.output(), "1\noldp.json\nrest\n");
    EXPECT_TRUE(program.errors().contains("No space left on device"))
        << program.errors().toStdString();
}

TEST_F(CtlProgramTest, HasASimulatedMacOfItsOwn) {
    EXPECT_EQ(run({"select", "50%", "--simulate"}), 0) << errors.toStdString();
    EXPECT_EQ(run({"state", "--simulate"}), 0);
    EXPECT_TRUE(output.contains("Selection        50%\n")) << output.toStdString();
}

TEST_F(CtlProgramTest, MonitorsUntilItIsInterrupted) {
    const SimulatorProgram simulator(bus);
    ChildProcess program(QStringLiteral(TERVALE_CTL), {"monitor", "--json", "--interval", "0.05"},
                         bus.environment());
    ASSERT_TRUE(eventually([&] { return program.output().count('\n') >= 3; }));
    program.send(SIGINT);
    EXPECT_TRUE(program.ends());
}
