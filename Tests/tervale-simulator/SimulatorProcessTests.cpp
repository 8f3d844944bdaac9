#include "Profiles/Bridge.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"
#include "tervale-simulator/SimulatorProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>

using namespace tervale;

namespace {

class SimulatorProcessTest : public testing::Test {
  protected:
    std::unique_ptr<SimulatorProcess> start() {
        return std::make_unique<SimulatorProcess>(run, center, preferences);
    }
    /// Every fan, as the controller itself has it.
    static std::vector<bool> manualFans(SimulatorProcess& process) {
        SMC smc(process.mac());
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

TEST_F(SimulatorProcessTest, PublishesItsStateAtTheStart) {
    const auto process = start();
    ASSERT_EQ(states.size(), 1U);
    EXPECT_FALSE(states[0].profiles.empty());
    EXPECT_EQ(process->socketPath(), run.socket);
}

TEST_F(SimulatorProcessTest, DrivesTheFansAsAWindowSays) {
    const auto process = start();
    bridge.send(command::Select{action::Fixed{0.5}});
    EXPECT_EQ(manualFans(*process), (std::vector<bool>{true, true}));
    EXPECT_EQ(states.back().selection, Action(action::Fixed{0.5}));
}

TEST_F(SimulatorProcessTest, LetsTheFirmwareDriveTheFansWithoutAnAgent) {
    run.agent = false;
    run.mac.scenario = Scenario::heatwave;
    const auto process = start();
    bridge.send(command::Select{action::Fixed{0.5}});
    process->advance(600);
    EXPECT_EQ(manualFans(*process), (std::vector<bool>{false, false}));
    EXPECT_TRUE(states.empty());
}

TEST_F(SimulatorProcessTest, LendsNoControllerWhenToldSo) {
    run.controller = false;
    const auto process = start();
    EXPECT_FALSE(process->socketPath());
    EXPECT_FALSE(std::filesystem::exists(*run.socket));
}

TEST_F(SimulatorProcessTest, TicksOnceForEverySecondOfTheMac) {
    const auto process = start();
    bridge.send(command::Select{action::Fixed{0.5}});
    // Something else takes the fans away; the agent's next tick takes them back.
    SMC(process->mac()).setAuto();
    for (int i = 0; i < 4; ++i)
        process->advance(0.2);
    EXPECT_EQ(manualFans(*process), (std::vector<bool>{false, false}));
    process->advance(0.2);
    EXPECT_EQ(manualFans(*process), (std::vector<bool>{true, true}));
}

TEST_F(SimulatorProcessTest, GivesTheFansBackAndRemovesTheSocketInTheEnd) {
    const auto process = start();
    bridge.send(command::Select{action::Fixed{0.5}});
    ASSERT_EQ(manualFans(*process), (std::vector<bool>{true, true}));
    ASSERT_TRUE(std::filesystem::exists(*run.socket));
    process->end();
    EXPECT_EQ(manualFans(*process), (std::vector<bool>{false, false}));
    EXPECT_FALSE(std::filesystem::exists(*run.socket));
}

TEST_F(SimulatorProcessTest, IsNotHeardWhereAnotherServesAlready) {
    const auto first = start();
    states.clear();
    EXPECT_THROW(start(), SocketServer::Refused);
    EXPECT_TRUE(states.empty());
}

TEST_F(SimulatorProcessTest, RefusesARuntimeFolderThatOthersCanWriteTo) {
    ::setenv("XDG_RUNTIME_DIR", folder.path.c_str(), 1);
    std::filesystem::create_directory(folder.path / "tervale");
    ASSERT_EQ(::chmod((folder.path / "tervale").c_str(), 0777), 0);
    run.socket.reset();
    EXPECT_THROW(start(), SocketServer::Refused);
}

TEST_F(SimulatorProcessTest, KeepsWhatTheAgentStores) {
    {
        const auto process = start();
        bridge.send(command::Select{action::Fixed{0.25}});
    }
    states.clear();
    const auto process = start();
    ASSERT_EQ(states.size(), 1U);
    EXPECT_EQ(states[0].selection, Action(action::Fixed{0.25}));
}
