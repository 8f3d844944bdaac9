#include "Profiles/Bridge.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
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
    std::unique_ptr<Simulator> start() {
        return std::make_unique<Simulator>(run, center, preferences);
    }
    /// Every fan, as the controller itself has it.
    static std::vector<bool> manualFans(Simulator& simulator) {
        SMC smc(simulator.simulation().mac());
        std::vector<bool> manual;
        for (const Fan& fan : smc.fans())
            manual.push_back(fan.manual);
        return manual;
    }

    TemporaryFolder folder;
    SimulatorCommandLine::Run run{.socket = folder.path / "socket"};
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    Bridge bridge{center};
    std::vector<BridgeState> states;
    ObserverToken window =
        bridge.onState([this](const BridgeState& state) { states.push_back(state); });
};

} // namespace

TEST_F(SimulatorTest, PublishesItsStateAtTheStart) {
    const auto simulator = start();
    ASSERT_EQ(states.size(), 1U);
    EXPECT_FALSE(states[0].profiles.empty());
    EXPECT_EQ(simulator->socketPath(), run.socket);
}

TEST_F(SimulatorTest, DrivesTheFansAsAWindowSays) {
    const auto simulator = start();
    bridge.send(command::Select{action::Fixed{0.5}});
    EXPECT_EQ(manualFans(*simulator), (std::vector<bool>{true, true}));
    EXPECT_EQ(states.back().selection, Action(action::Fixed{0.5}));
}

TEST_F(SimulatorTest, LetsTheFirmwareDriveTheFansWithoutAnAgent) {
    run.agent = false;
    run.mac.scenario = Scenario::heatwave;
    const auto simulator = start();
    bridge.send(command::Select{action::Fixed{0.5}});
    simulator->simulation().advance(600);
    EXPECT_EQ(manualFans(*simulator), (std::vector<bool>{false, false}));
    EXPECT_TRUE(states.empty());
}

TEST_F(SimulatorTest, ServesNoControllerWhenToldSo) {
    run.controller = false;
    const auto simulator = start();
    EXPECT_FALSE(simulator->socketPath());
    EXPECT_FALSE(std::filesystem::exists(*run.socket));
}

TEST_F(SimulatorTest, TicksOnceForEverySecondOfTheMac) {
    const auto simulator = start();
    bridge.send(command::Select{action::Fixed{0.5}});
    // Something else takes the fans away; the agent's next tick takes them back.
    SMC(simulator->simulation().mac()).setAuto();
    for (int i = 0; i < 4; ++i)
        simulator->simulation().advance(0.2);
    EXPECT_EQ(manualFans(*simulator), (std::vector<bool>{false, false}));
    simulator->simulation().advance(0.2);
    EXPECT_EQ(manualFans(*simulator), (std::vector<bool>{true, true}));
}

TEST_F(SimulatorTest, GivesTheFansBackAndRemovesTheSocketInTheEnd) {
    const auto simulator = start();
    bridge.send(command::Select{action::Fixed{0.5}});
    ASSERT_EQ(manualFans(*simulator), (std::vector<bool>{true, true}));
    ASSERT_TRUE(std::filesystem::exists(*run.socket));
    simulator->end();
    EXPECT_EQ(manualFans(*simulator), (std::vector<bool>{false, false}));
    EXPECT_FALSE(std::filesystem::exists(*run.socket));
}

TEST_F(SimulatorTest, IsNotHeardWhereAnotherServesAlready) {
    const auto first = start();
    states.clear();
    EXPECT_THROW(start(), SocketServer::Refused);
    EXPECT_TRUE(states.empty());
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
    EXPECT_THROW(start(), SocketServer::Refused);
    EXPECT_TRUE(states.empty());
    EXPECT_FALSE(std::filesystem::exists(*run.socket));
}

TEST_F(SimulatorTest, KeepsWhatTheAgentStores) {
    {
        const auto simulator = start();
        bridge.send(command::Select{action::Fixed{0.25}});
    }
    states.clear();
    const auto simulator = start();
    ASSERT_EQ(states.size(), 1U);
    EXPECT_EQ(states[0].selection, Action(action::Fixed{0.25}));
}
