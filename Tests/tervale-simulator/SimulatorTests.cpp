#include "SMC/SMC.h"
#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"
#include "tervale-simulator/Simulator.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>

using namespace tervale;

namespace {

class SimulatorTest : public testing::Test {
  protected:
    std::unique_ptr<Simulator> start() { return std::make_unique<Simulator>(run); }

    TemporaryFolder folder;
    SimulatorCommandLine::Run run{.socket = folder.path / "socket"};
};

} // namespace

TEST_F(SimulatorTest, ServesTheControllerForAsLongAsItRuns) {
    {
        const auto simulator = start();
        EXPECT_EQ(simulator->socketPath(), *run.socket);
        EXPECT_TRUE(std::filesystem::exists(*run.socket));
    }
    EXPECT_FALSE(std::filesystem::exists(*run.socket));
}

TEST_F(SimulatorTest, LeavesTheFansToTheFirmware) {
    run.mac.scenario = Scenario::heatwave;
    const auto simulator = start();
    simulator->simulation().advance(600);
    for (const Fan& fan : SMC(simulator->simulation().mac()).fans())
        EXPECT_FALSE(fan.manual);
}

TEST_F(SimulatorTest, LetsTimePassAsFastAsItIsTold) {
    run.speed = 100;
    const auto simulator = start();
    EXPECT_TRUE(eventually([&] { return simulator->simulation().clock().now() > Date{30}; }));
}

TEST_F(SimulatorTest, HasTheFaultsThatItIsTold) {
    run.faults = {{"F0Ac", fault::RefusedValue{}}};
    const auto simulator = start();
    SMC smc(simulator->simulation().mac());
    EXPECT_THROW(smc.read("F0Ac"), SMCError);
    EXPECT_NO_THROW(smc.read("F1Ac"));
}

TEST_F(SimulatorTest, RefusesAFaultOfAKeyThatItDoesNotHave) {
    run.faults = {{"F9Ac", fault::RefusedValue{}}};
    EXPECT_THROW(start(), Simulator::NoSuchKey);
}

TEST_F(SimulatorTest, LeavesThePlaceToOneThatServesThereAlready) {
    const auto first = start();
    EXPECT_THROW(start(), SocketServer::Refused);
    EXPECT_TRUE(std::filesystem::exists(*run.socket));
}

TEST_F(SimulatorTest, RefusesARuntimeFolderThatOthersCanWriteTo) {
    ::setenv("XDG_RUNTIME_DIR", folder.path.c_str(), 1);
    std::filesystem::create_directory(folder.path / "tervale");
    ASSERT_EQ(::chmod((folder.path / "tervale").c_str(), 0777), 0);
    run.socket.reset();
    EXPECT_THROW(start(), SocketServer::Refused);
}

TEST_F(SimulatorTest, RefusesASocketWhereNobodyWouldLook) {
    std::filesystem::create_directory(folder.path / "shared");
    ASSERT_EQ(::chmod((folder.path / "shared").c_str(), 0777), 0);
    run.socket = folder.path / "shared" / "socket";
    std::string reason;
    try {
        start();
    } catch (const SocketServer::Refused& refusal) {
        reason = refusal.what();
    }
    EXPECT_EQ(reason, "Cannot serve on '" + run.socket->string() +
                          "': its folder is not this user's alone to write to.");
    EXPECT_FALSE(std::filesystem::exists(*run.socket));
}
