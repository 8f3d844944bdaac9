#include "Platform/Linux/DBusNotificationCenter.h"
#include "Platform/Linux/SocketRegistry.h"
#include "Processes/Programs.h"
#include "Profiles/Clock.h"
#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Support/Settable.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace tervale;

namespace {

/// The window's model in this process, the Mac and its agent in one each.
class ThreeProcessesTest : public testing::Test {
  protected:
    Model& openModel() { return openModel(registry); }
    Model& openModel(IORegistry& mac) {
        model = std::make_unique<Model>(mac, bridge, clock, visibility);
        PrivateBus::settle(connection);
        return *model;
    }
    bool selects(const Action& action) {
        bridge.send(command::Select{action});
        return eventually([&] { return model->selection() == action; });
    }

    PrivateBus bus;
    QDBusConnection connection = bus.connect();
    DBusNotificationCenter center{connection};
    Bridge bridge{center};
    SocketRegistry registry{bus.socket(), patienceWithMac};
    /// For a Mac that is stopped.
    SocketRegistry impatient{bus.socket()};
    SystemClock clock;
    SettableVisibility visibility;
    std::unique_ptr<Model> model;
};

} // namespace

TEST_F(ThreeProcessesTest, ShowTheMacAndMirrorTheAgent) {
    const MacWithAgent programs(bus, {"--fans", "3", "--sensors", "40"});
    openModel();
    EXPECT_EQ(model->fans().size(), 3U);
    EXPECT_EQ(model->sensors().size(), 40U);
    EXPECT_NE(model->summary(), TemperatureReadings{});
    ASSERT_TRUE(eventually([&] { return model->connected(); }));
    EXPECT_FALSE(model->profiles().empty());
    ASSERT_TRUE(selects(action::Fixed{1.0}));
    EXPECT_TRUE(eventually([&] { return model->fans()[0].manual; }));
}

TEST_F(ThreeProcessesTest, PickUpAnAgentThatComesLater) {
    openModel();
    EXPECT_TRUE(model->fans().empty());
    EXPECT_FALSE(model->connected());
    const MacWithAgent programs(bus);
    ASSERT_TRUE(eventually([&] { return model->connected(); }));
    EXPECT_FALSE(model->profiles().empty());
    // A controller that was not there at the start stays away.
    EXPECT_TRUE(model->sensors().empty());
}

TEST_F(ThreeProcessesTest, GoOnWithAnAgentThatDiesAndReturns) {
    {
        MacWithAgent programs(bus);
        openModel();
        ASSERT_TRUE(eventually([&] { return model->connected(); }));
        ASSERT_TRUE(selects(action::Fixed{0.25}));
        for (ChildProcess* program : {static_cast<ChildProcess*>(&programs.agent),
                                      static_cast<ChildProcess*>(&programs.mac)}) {
            program->send(SIGKILL);
            ASSERT_TRUE(program->ends());
        }
    }
    ASSERT_TRUE(eventually([&] { return model->fans().empty(); }));
    EXPECT_TRUE(model->connected());
    EXPECT_EQ(model->selection(), Action(action::Fixed{0.25}));
    const MacWithAgent returned(bus);
    EXPECT_TRUE(selects(action::Fixed{0.75}));
    EXPECT_TRUE(eventually([&] { return model->fans().size() == 2; }));
}

TEST_F(ThreeProcessesTest, MirrorAndCommandAnAgentThatIsNoneOfOurs) {
    openModel();
    const auto monitor = bus.monitor();
    ASSERT_TRUE(bus.emitWithTool(
        {"'com.velnor.tervale.state'",
         "'{\"selection\":{\"fixed\":{\"_0\":0.5}},\"launchAtLogin\":true,\"profiles\":[]}'"}));
    ASSERT_TRUE(eventually([&] { return model->connected(); }));
    EXPECT_EQ(model->selection(), Action(action::Fixed{0.5}));
    EXPECT_TRUE(model->launchAtLogin());
    bridge.send(command::StartTimer{action::Automatic{}, 900});
    EXPECT_TRUE(monitor->says("string \"com.velnor.tervale.command\"\n   string "
                              "\"{\"startTimer\":{\"_0\":{\"automatic\":{}},\"_1\":900}}\"\n"))
        << monitor->output().constData();
}

TEST_F(ThreeProcessesTest, MeetAgainOnABusThatWasStartedAnew) {
    DBusNotificationCenter lasting([this] { return bus.connect(); });
    Bridge lastingBridge(lasting);
    std::vector<BridgeState> states;
    const ObserverToken token =
        lastingBridge.onState([&](const BridgeState& state) { states.push_back(state); });
    MacWithAgent programs(bus);
    lastingBridge.send(command::Select{action::Fixed{1}});
    ASSERT_TRUE(eventually(
        [&] { return !states.empty() && states.back().selection == Action(action::Fixed{1}); }));
    bool back = false;
    const ObserverToken channel =
        lasting.observeChannel([&](Channel state) { back = state == Channel::back; });
    bus.stop();
    bus.start();
    ASSERT_TRUE(eventually([&] { return back; }));
    states.clear();
    ASSERT_TRUE(eventually([&] {
        lastingBridge.send(command::RequestState{});
        return !states.empty();
    }));
    EXPECT_EQ(states.back().selection, Action(action::Fixed{1}));
    EXPECT_TRUE(programs.agent.runs());
    EXPECT_TRUE(
        eventually([&] { return programs.agent.errors().contains("The session bus is back."); }));
}

TEST_F(ThreeProcessesTest, ShowTheFansAgainOnceAStoppedProcessGoesOn) {
    const SimulatorProgram simulator(bus);
    openModel(impatient);
    ASSERT_EQ(model->fans().size(), 2U);
    simulator.send(SIGSTOP);
    ASSERT_TRUE(eventually([&] { return model->fans().empty(); }));
    simulator.send(SIGCONT);
    EXPECT_TRUE(eventually([&] { return model->fans().size() == 2; }));
}

TEST_F(ThreeProcessesTest, KeepTheStateThroughRubbish) {
    const MacWithAgent programs(bus);
    openModel();
    ASSERT_TRUE(eventually([&] { return model->connected(); }));
    ASSERT_TRUE(selects(action::Fixed{0.5}));
    const auto profiles = model->profiles();
    DBusNotificationCenter stranger(bus.connect());
    for (const char* text :
         {"", "{", "null", "7", "[]", "{}", "{\"selection\":{\"automatic\":{}}}",
          R"({"selection":{"automatic":{},"fixed":{"_0":1}},"launchAtLogin":true,"profiles":[]})",
          "{\"selection\":{\"automatic\":{}},\"launchAtLogin\":true,\"profiles\":[{}]}"})
        stranger.post(Bridge::stateName, text);
    stranger.post(Bridge::stateName, std::string(10'000'000, '{'));
    stranger.post(Bridge::stateName, std::nullopt);
    for (int i = 0; i < 10'000; ++i)
        stranger.post(Bridge::stateName, "{\"selection\":" + std::to_string(i) + "}");
    int marks = 0;
    const ObserverToken mark = center.observe("mark", [&](const auto&) { ++marks; });
    PrivateBus::settle(connection);
    stranger.post("mark", std::nullopt);
    ASSERT_TRUE(eventually([&] { return marks == 1; }));
    EXPECT_EQ(model->selection(), Action(action::Fixed{0.5}));
    EXPECT_FALSE(model->launchAtLogin());
    EXPECT_EQ(model->profiles(), profiles);
    EXPECT_TRUE(selects(action::Automatic{}));
}
