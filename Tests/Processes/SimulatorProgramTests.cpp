#include "Platform/Linux/RawSocket.h"
#include "Platform/Linux/SocketRegistry.h"
#include "Processes/Programs.h"
#include "SMC/SMC.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace tervale;

namespace {

class SimulatorProgramTest : public testing::Test {
  protected:
    /// The fans as another process sees them.
    std::size_t fansSeen() const {
        SocketRegistry registry(bus.socket());
        return SMC(registry).fans().size();
    }
    void expectWrongUsage(const QStringList& arguments) const {
        ChildProcess program(TERVALE_SIMULATOR, arguments, bus.environment());
        ASSERT_TRUE(program.ends());
        EXPECT_EQ(program.status(), 2);
        EXPECT_EQ(program.output(), "");
        EXPECT_TRUE(program.errors().startsWith("tervale-simulator: "));
        EXPECT_EQ(program.errors().count('\n'), 1);
    }

    PrivateBus bus;
};

const QString stateCommand = "'com.velnor.tervale.command'";

} // namespace

TEST_F(SimulatorProgramTest, RefusesWrongUsageInOneLine) {
    expectWrongUsage({"--frobnicate"});
    expectWrongUsage({"--fans", "11"});
    expectWrongUsage({"file"});
}

TEST_F(SimulatorProgramTest, PrintsItsHelpAndVersion) {
    ChildProcess help(TERVALE_SIMULATOR, {"--help"}, bus.environment());
    ASSERT_TRUE(help.ends());
    EXPECT_EQ(help.status(), 0);
    EXPECT_TRUE(help.output().startsWith("Usage: tervale-simulator"));
    ChildProcess version(TERVALE_SIMULATOR, {"--version"}, bus.environment());
    ASSERT_TRUE(version.ends());
    EXPECT_EQ(version.status(), 0);
    EXPECT_TRUE(version.output().startsWith("tervale-simulator "));
}

TEST_F(SimulatorProgramTest, EndsCleanlyWhenAskedTo) {
    for (const int signal : {SIGINT, SIGTERM}) {
        SimulatorProgram simulator(bus);
        ASSERT_TRUE(std::filesystem::exists(bus.socket()));
        simulator.send(signal);
        ASSERT_TRUE(simulator.ends());
        EXPECT_EQ(simulator.status(), 0);
        EXPECT_EQ(simulator.errors(), "");
        EXPECT_FALSE(std::filesystem::exists(bus.socket()));
    }
}

TEST_F(SimulatorProgramTest, TakesThePlaceOfOneThatCrashed) {
    {
        SimulatorProgram crashed(bus);
        crashed.send(SIGKILL);
        ASSERT_TRUE(crashed.ends());
    }
    ASSERT_TRUE(std::filesystem::exists(bus.socket()));
    const SimulatorProgram simulator(bus, {"--fans", "3"});
    EXPECT_EQ(fansSeen(), 3U);
}

TEST_F(SimulatorProgramTest, LeavesTheSocketOfOneThatRuns) {
    const SimulatorProgram first(bus, {"--fans", "3"});
    ChildProcess second(TERVALE_SIMULATOR, {}, bus.environment());
    ASSERT_TRUE(second.ends());
    EXPECT_EQ(second.status(), 1);
    EXPECT_TRUE(second.errors().endsWith("another process serves there.\n"));
    EXPECT_EQ(fansSeen(), 3U);
}

TEST_F(SimulatorProgramTest, NeedsASessionBusForItsAgentOnly) {
    QProcessEnvironment lonely = bus.environment();
    lonely.remove("DBUS_SESSION_BUS_ADDRESS");
    ChildProcess refused(TERVALE_SIMULATOR, {}, lonely);
    ASSERT_TRUE(refused.ends());
    EXPECT_EQ(refused.status(), 1);
    EXPECT_EQ(refused.errors().count('\n'), 1);
    ChildProcess simulator(TERVALE_SIMULATOR, {"--no-agent"}, lonely);
    ASSERT_TRUE(simulator.says("Controller on " + QByteArray(bus.socket().c_str()) + "\n"));
    EXPECT_EQ(fansSeen(), 2U);
}

TEST_F(SimulatorProgramTest, AnswersACommandFromAnothersTool) {
    const SimulatorProgram simulator(bus, {"--no-smc"});
    EXPECT_FALSE(std::filesystem::exists(bus.socket()));
    const auto monitor = bus.monitor();
    ASSERT_TRUE(
        bus.emitWithTool({stateCommand, "'{\"select\":{\"_0\":{\"fixed\":{\"_0\":0.5}}}}'"}));
    EXPECT_TRUE(monitor->says("string \"com.velnor.tervale.state\"\n   string "
                              "\"{\"selection\":{\"fixed\":{\"_0\":0.5}}"))
        << monitor->output().constData();
}

TEST_F(SimulatorProgramTest, AnswersBusctlAsWell) {
    const SimulatorProgram simulator(bus, {"--no-smc"});
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

TEST_F(SimulatorProgramTest, GoesOnAfterRubbishFromAllSides) {
    const SimulatorProgram simulator(bus);
    const auto monitor = bus.monitor();
    for (const QStringList& arguments : std::vector<QStringList>{
             {},
             {stateCommand},
             {stateCommand, "uint32 7"},
             {stateCommand, "'{'"},
             {stateCommand, "'{\"select\":{}}'"},
             {stateCommand, "'{\"startTimer\":{\"_0\":{\"automatic\":{}},\"_1\":\"x\"}}'"}})
        ASSERT_TRUE(bus.emitWithTool(arguments));
    for (int i = 0; i < 20; ++i) {
        const auto client = RawSocket::connectedTo(bus.socket());
        ASSERT_TRUE(client.send(Packet(static_cast<std::size_t>(i * 50 + 1), 0xFF)));
    }
    EXPECT_EQ(fansSeen(), 2U);
    EXPECT_FALSE(monitor->output().contains("tervale.state"));
    ASSERT_TRUE(bus.emitWithTool({stateCommand, "'{\"requestState\":{}}'"}));
    EXPECT_TRUE(monitor->says("tervale.state"));
}
