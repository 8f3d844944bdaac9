#include "Platform/Linux/RawSocket.h"
#include "Platform/Linux/SocketRegistry.h"
#include "Processes/Programs.h"
#include "SMC/SMC.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>

using namespace tervale;

namespace {

class SimulatorProgramTest : public testing::Test {
  protected:
    /// The fans as another process sees them.
    std::size_t fansSeen() const {
        SocketRegistry registry(bus.socket(), patienceWithMac);
        return SMC(registry).fans().size();
    }
    /// The same once the program serves there.
    bool showsFans() const {
        return eventually([this] {
            try {
                return fansSeen() == 2;
            } catch (const SMCError&) {
                return false;
            }
        });
    }
    /// Whether a request over the connection is answered well.
    static bool isAnswered(const RawSocket& client, const Packet& request) {
        if (!client.send(request))
            return false;
        client.waitForInput();
        return client.receive() == packetOf({0, 0, 0, 0});
    }
    static bool finds(const RawSocket& client) {
        return isAnswered(client, findRequest("AppleSMC"));
    }
    static bool opens(const RawSocket& client) {
        return isAnswered(client, packetOf({2, 0, 0, 0, 0, 0, 0, 0}));
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

TEST_F(SimulatorProgramTest, MakesASocketAgainThatWasRemoved) {
    SimulatorProgram simulator(bus);
    const auto before = RawSocket::connectedTo(bus.socket());
    ASSERT_TRUE(finds(before));
    const std::filesystem::path away = bus.runtimeFolder() / "away";
    for (const auto& removed : {bus.socket(), bus.socket().parent_path()}) {
        // At once: a folder that is emptied first may be filled again meanwhile.
        std::filesystem::rename(removed, away);
        std::filesystem::remove_all(away);
        EXPECT_TRUE(showsFans()) << removed;
    }
    EXPECT_TRUE(opens(before)) << "who was connected was hung up on";
    EXPECT_TRUE(eventually([&] {
        return simulator.errors().count("The socket was removed. It is there again.\n") == 2;
    })) << simulator.errors().toStdString();
    simulator.send(SIGTERM);
    ASSERT_TRUE(simulator.ends());
    EXPECT_FALSE(std::filesystem::exists(bus.socket()));
}

TEST_F(SimulatorProgramTest, LeavesWhatIsPutInThePlaceOfItsSocket) {
    SimulatorProgram simulator(bus);
    const auto before = RawSocket::connectedTo(bus.socket());
    std::filesystem::remove(bus.socket());
    std::ofstream(bus.socket()) << "somebody's";
    // As long as it takes to make a socket again.
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(eventually([&] { return time.elapsed() > 1500; }));
    EXPECT_TRUE(std::filesystem::is_regular_file(bus.socket()));
    EXPECT_TRUE(finds(before));
    simulator.send(SIGTERM);
    ASSERT_TRUE(simulator.ends());
    EXPECT_TRUE(std::filesystem::is_regular_file(bus.socket()));
}

TEST_F(SimulatorProgramTest, NeedsNoSessionBus) {
    QProcessEnvironment lonely = bus.environment();
    lonely.remove("DBUS_SESSION_BUS_ADDRESS");
    ChildProcess simulator(TERVALE_SIMULATOR, {}, lonely);
    ASSERT_TRUE(simulator.says("Controller on " + QByteArray(bus.socket().c_str()) + "\n"));
    EXPECT_EQ(fansSeen(), 2U);
}

TEST_F(SimulatorProgramTest, HasTheFaultsThatItIsTold) {
    expectWrongUsage({"--fault", "F0Ac"});
    ChildProcess refused(TERVALE_SIMULATOR, {"--fault", "F9Ac=stuck"}, bus.environment());
    ASSERT_TRUE(refused.ends());
    EXPECT_EQ(refused.status(), 1);
    EXPECT_EQ(refused.errors(), "tervale-simulator: This Mac has no key 'F9Ac'.\n");
    const SimulatorProgram simulator(bus, {"--fault", "F1Ac=unreadable"});
    SocketRegistry registry(bus.socket(), patienceWithMac);
    SMC smc(registry);
    EXPECT_NO_THROW(smc.fan(0));
    EXPECT_THROW(smc.fan(1), SMCError);
}

TEST_F(SimulatorProgramTest, GoesOnAfterRubbish) {
    const SimulatorProgram simulator(bus);
    for (int i = 0; i < 20; ++i) {
        const auto client = RawSocket::connectedTo(bus.socket());
        ASSERT_TRUE(client.send(Packet(static_cast<std::size_t>(i * 50 + 1), 0xFF)));
    }
    EXPECT_EQ(fansSeen(), 2U);
}
