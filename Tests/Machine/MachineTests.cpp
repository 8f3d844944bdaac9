#include "Machine/Machine.h"
#include "Profiles/Bridge.h"
#include "SMC/SMC.h"
#include "Support/TemporaryFolder.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>
#include <vector>

namespace tervale {
namespace {

/// Runs the event loop until the condition holds; false if it does not within ten seconds.
template <class Condition>
bool waitUntil(Condition condition) {
    const QDeadlineTimer deadline(10000);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    return condition();
}

/// Without a session bus, and with preferences of its own.
class MachineTest : public testing::Test {
  protected:
    MachineTest() {
        ::setenv("XDG_CONFIG_HOME", folder.path.c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", folder.path.c_str(), 1);
        ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", 1);
    }

    TemporaryFolder folder;
};

TEST_F(MachineTest, IsASimulatedMacWithAnAgentThatAnswers) {
    const Machine machine = makeMachine(machineChoice::Simulated{});
    EXPECT_EQ(SMC(*machine.registry).fans().size(), 2U);
    Bridge bridge(*machine.notificationCenter);
    std::vector<BridgeState> states;
    const ObserverToken token =
        bridge.onState([&](const BridgeState& state) { states.push_back(state); });
    bridge.send(command::RequestState{});
    ASSERT_TRUE(waitUntil([&] { return !states.empty(); }));
    EXPECT_FALSE(states[0].profiles.empty());
    EXPECT_TRUE(machine.load().has_value());
}

TEST_F(MachineTest, KeepsWhatStandsBehindItWhileAnyPartOfItIsKept) {
    std::shared_ptr<IORegistry> registry = makeMachine(machineChoice::Simulated{}).registry;
    EXPECT_EQ(SMC(*registry).fans().size(), 2U);
}

#ifndef __APPLE__
TEST_F(MachineTest, HasNoControllerWhereNoneIsServed) {
    const Machine system = makeMachine(machineChoice::System{});
    EXPECT_THROW(SMC(*system.registry), SMCError);
    const Machine remote = makeMachine(machineChoice::Remote{folder.path / "socket"});
    EXPECT_THROW(SMC(*remote.registry), SMCError);
}

TEST_F(MachineTest, KeepsNotificationsToItselfWithoutASessionBus) {
    const Machine machine = makeMachine(machineChoice::System{});
    std::optional<std::thread::id> thread;
    const ObserverToken token = machine.notificationCenter->observe(
        "note", [&](const std::optional<std::string>&) { thread = std::this_thread::get_id(); });
    std::thread([&] { machine.notificationCenter->post("note", std::nullopt); }).join();
    ASSERT_TRUE(waitUntil([&] { return thread.has_value(); }));
    EXPECT_EQ(thread, std::this_thread::get_id());
}
#else
TEST_F(MachineTest, IsRefusedOnASocketWhereControllersAreNotServed) {
    EXPECT_THROW(makeMachine(machineChoice::Remote{folder.path / "socket"}), NoSuchMachine);
}
#endif

} // namespace
} // namespace tervale
