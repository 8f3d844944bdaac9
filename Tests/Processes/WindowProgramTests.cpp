#include "Platform/Linux/DBusNotificationCenter.h"
#include "Platform/Linux/SocketRegistry.h"
#include "Platform/Linux/SocketServer.h"
#include "Processes/Programs.h"
#include "Profiles/Bridge.h"
#include "SMC/SMC.h"
#include "Simulation/SimulatedMac.h"

#include <QFile>

#include <gtest/gtest.h>

#include <csignal>
#include <optional>

using namespace tervale;

namespace {

class WindowProgramTest : public testing::Test {
  protected:
    WindowProgramTest() { PrivateBus::settle(connection); }

    bool hearsRequestState() {
        return eventually([this] { return requests > 0; });
    }
    /// Whether the window still answers: it ends when it is asked to. One that is just opening may
    /// not listen yet, and is asked again.
    bool quits(ChildProcess& window) {
        const auto ended = [&] {
            bridge.quitWindow();
            return !window.runs();
        };
        return eventually(ended) && window.status() == 0;
    }
    bool quitsByTool(ChildProcess& window, const QStringList& arguments) {
        const auto ended = [&] {
            return !window.runs() || (bus.emitWithTool(arguments) && !window.runs());
        };
        return eventually(ended) && window.status() == 0;
    }

    PrivateBus bus;
    QDBusConnection connection = bus.connect();
    DBusNotificationCenter center{connection};
    Bridge bridge{center};
    int requests = 0;
    ObserverToken commands = bridge.onCommand([this](const BridgeCommand& command) {
        if (std::holds_alternative<command::RequestState>(command))
            ++requests;
    });
};

const QString stateName = "'com.velnor.tervale.state'";

/// What the window itself said; the toolkit's platforms have things of their own to say.
QList<QByteArray> complaints(ChildProcess& window) {
    QList<QByteArray> lines;
    for (const QByteArray& line : window.errors().split('\n')) {
        if (line.startsWith("tervale-window: "))
            lines << line;
    }
    return lines;
}

/// Whether the process has drawn text, for which it has to open a font.
bool hasDrawn(const ChildProcess& window) {
    QFile maps(QStringLiteral("/proc/%1/maps").arg(window.id()));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("/fonts/");
}

} // namespace

TEST_F(WindowProgramTest, AsksForTheStateOnceAndQuitsWhenToldTo) {
    const auto monitor = bus.monitor();
    WindowProgram window(bus);
    ASSERT_TRUE(monitor->says("{\"requestState\":{}}"));
    ASSERT_TRUE(hearsRequestState());
    ASSERT_TRUE(eventually([&] { return hasDrawn(window); }));
    EXPECT_TRUE(quitsByTool(window, {"'com.velnor.tervale.quit-window'"}));
    EXPECT_EQ(requests, 1);
}

TEST_F(WindowProgramTest, QuitsWhateverTheRequestToQuitCarries) {
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    ASSERT_TRUE(eventually([&] { return hasDrawn(window); }));
    EXPECT_TRUE(quitsByTool(window, {"'com.velnor.tervale.quit-window'", "uint32 7", "'x'"}));
}

TEST_F(WindowProgramTest, OpensWithNeitherControllerNorBus) {
    QProcessEnvironment lonely = bus.environment();
    lonely.remove("DBUS_SESSION_BUS_ADDRESS");
    WindowProgram window(lonely);
    EXPECT_TRUE(eventually([&] { return hasDrawn(window); }));
    EXPECT_TRUE(window.runs());
}

TEST_F(WindowProgramTest, SaysInOneLineWhatStartsAMacAndAnAgent) {
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    EXPECT_TRUE(quits(window));
    const QList<QByteArray> lines = complaints(window);
    ASSERT_EQ(lines.size(), 1) << window.errors().toStdString();
    for (const char* command : {"tervale-simulator", "tervale-agent", "tervale-window --simulate"})
        EXPECT_TRUE(lines.front().contains(command)) << lines.front().toStdString();
}

TEST_F(WindowProgramTest, SaysNothingWhereBothAreThere) {
    const MacWithAgent mac(bus);
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    EXPECT_TRUE(quits(window));
    EXPECT_TRUE(complaints(window).isEmpty()) << window.errors().toStdString();
}

TEST_F(WindowProgramTest, OpensWithoutABusThatAnswers) {
    QProcessEnvironment lonely = bus.environment();
    lonely.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/absent/bus");
    WindowProgram window(lonely);
    EXPECT_TRUE(eventually([&] { return hasDrawn(window); }));
    EXPECT_TRUE(window.runs());
}

TEST_F(WindowProgramTest, AsksForTheStateAgainOnANewSessionBus) {
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    std::optional<DBusNotificationCenter> newCenter;
    int again = 0;
    ObserverToken token;
    bus.stop();
    bus.start([&](const QDBusConnection& first) {
        newCenter.emplace(first);
        token = Bridge(*newCenter).onCommand([&](const BridgeCommand& command) {
            if (std::holds_alternative<command::RequestState>(command))
                ++again;
        });
        PrivateBus::settle(first);
    });
    ASSERT_TRUE(eventually([&] { return again > 0; }));
    ASSERT_TRUE(eventually([&] {
        Bridge(*newCenter).quitWindow();
        return !window.runs();
    }));
    EXPECT_EQ(window.status(), 0);
    EXPECT_EQ(again, 1);
}

TEST_F(WindowProgramTest, PollsTheControllerOnTheSocket) {
    ASSERT_TRUE(std::filesystem::create_directory(bus.socket().parent_path()));
    std::filesystem::permissions(bus.socket().parent_path(), std::filesystem::perms::owner_all);
    SimulatedMac mac;
    const SocketServer server(mac, bus.socket());
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    EXPECT_EQ(mac.openConnections(), 1U);
    EXPECT_EQ(mac.heldServices(), 1U);
    // It reads the fans again and again.
    for (int poll = 0; poll < 2; ++poll) {
        mac.resetCalls();
        ASSERT_TRUE(eventually([&] { return mac.calls().reads > 0; }));
    }
    EXPECT_EQ(mac.calls().writes, 0U);
    ASSERT_TRUE(quits(window));
    EXPECT_TRUE(eventually([&] { return mac.openConnections() == 0; }));
}

TEST_F(WindowProgramTest, SharesTheControllerWithASecondWindow) {
    const SimulatorProgram simulator(bus, {"--fans", "3"});
    WindowProgram first(bus);
    WindowProgram second(bus);
    ASSERT_TRUE(eventually([&] { return requests == 2; }));
    first.send(SIGKILL);
    ASSERT_TRUE(first.ends());
    // Neither the one that died nor the one that stays keeps a third from the Mac.
    SocketRegistry registry(bus.socket(), patienceWithMac);
    EXPECT_EQ(SMC(registry).fans().size(), 3U);
    EXPECT_TRUE(second.runs());
    EXPECT_TRUE(quits(second));
}

TEST_F(WindowProgramTest, OutlivesAnAgentThatDiesAndReturns) {
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    for (int life = 0; life < 2; ++life) {
        AgentProcess agent(bus, {"--simulate"});
        ASSERT_TRUE(window.runs());
        agent.send(SIGKILL);
        ASSERT_TRUE(agent.ends());
    }
    EXPECT_TRUE(quits(window));
}

TEST_F(WindowProgramTest, AnswersWhileTheControllersProcessIsStopped) {
    SimulatorProgram simulator(bus);
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    simulator.send(SIGSTOP);
    EXPECT_TRUE(quits(window));
    simulator.send(SIGCONT);
    simulator.send(SIGTERM);
    EXPECT_TRUE(simulator.ends());
    EXPECT_EQ(simulator.status(), 0);
}

TEST_F(WindowProgramTest, OutlivesTheControllersProcess) {
    SimulatorProgram simulator(bus);
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    simulator.send(SIGKILL);
    ASSERT_TRUE(simulator.ends());
    EXPECT_TRUE(quits(window));
}

TEST_F(WindowProgramTest, AnswersAfterRubbishFromOthersTools) {
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    for (const QStringList& arguments :
         std::vector<QStringList>{{},
                                  {stateName},
                                  {"uint32 7", stateName},
                                  {stateName, "uint32 7"},
                                  {stateName, "@ay [0xff, 0xfe]"},
                                  {stateName, "{'a': <1>}"},
                                  {stateName, "'null'"},
                                  {stateName, "'{}'", "'{}'"},
                                  {stateName, "'\xEF\xBF\xBE\xEF\xBF\xBF'"}})
        ASSERT_TRUE(bus.emitWithTool(arguments)) << arguments.join(' ').toStdString();
    EXPECT_TRUE(quits(window));
}

TEST_F(WindowProgramTest, AnswersAfterTenMegabytesAndTenThousandSignals) {
    WindowProgram window(bus);
    ASSERT_TRUE(hearsRequestState());
    center.post(Bridge::stateName, std::string(10'000'000, '['));
    center.post(Bridge::stateName, "\"" + std::string(10'000'000, 'x') + "\"");
    for (int i = 0; i < 10'000; ++i) {
        BridgeState state;
        state.status = std::to_string(i);
        bridge.publish(state);
    }
    EXPECT_TRUE(quits(window));
}
