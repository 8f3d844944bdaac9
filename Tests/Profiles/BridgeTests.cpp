#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Profiles/InProcessNotificationCenter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace tervale {

namespace {

using namespace std::string_view_literals;

using Object = std::optional<std::string>;

class BridgeTest : public testing::Test {
  protected:
    /// What is posted under a name, from now on.
    std::vector<Object>& posted(const char* name) {
        tokens.push_back(
            center.observe(name, [this](const Object& object) { objects.push_back(object); }));
        return objects;
    }

    InProcessNotificationCenter center;
    Bridge bridge{center};

  private:
    std::vector<Object> objects;
    std::vector<ObserverToken> tokens;
};

} // namespace

TEST_F(BridgeTest, HasTheAgentsNames) {
    EXPECT_STREQ(Bridge::commandName, "com.velnor.tervale.command");
    EXPECT_STREQ(Bridge::stateName, "com.velnor.tervale.state");
    EXPECT_STREQ(Bridge::quitName, "com.velnor.tervale.quit-window");
}

TEST_F(BridgeTest, SendsACommandAsJSON) {
    const auto& objects = posted(Bridge::commandName);
    bridge.send(command::StartTimer{action::Fixed{0.5}, 900});
    EXPECT_EQ(objects,
              std::vector<Object>{R"({"startTimer":{"_0":{"fixed":{"_0":0.5}},"_1":900}})"});
}

TEST_F(BridgeTest, PublishesAStateAsJSON) {
    const auto& objects = posted(Bridge::stateName);
    bridge.publish({});
    EXPECT_EQ(objects,
              std::vector<Object>{
                  R"({"selection":{"automatic":{}},"launchAtLogin":false,"profiles":[]})"});
}

TEST_F(BridgeTest, AsksTheWindowToQuitWithoutAString) {
    const auto& objects = posted(Bridge::quitName);
    bridge.quitWindow();
    EXPECT_EQ(objects, std::vector<Object>{std::nullopt});
}

TEST_F(BridgeTest, SendsNothingThatCannotBeEncoded) {
    const auto& commands = posted(Bridge::commandName);
    bridge.send(command::StartTimer{action::Automatic{}, std::nan("")});
    EXPECT_TRUE(commands.empty());
    const auto& states = posted(Bridge::stateName);
    BridgeState state;
    state.timerEnds = Date{std::numeric_limits<double>::infinity()};
    bridge.publish(state);
    EXPECT_TRUE(states.empty());
}

TEST_F(BridgeTest, RepairsIllFormedTextInACommand) {
    std::vector<BridgeCommand> received;
    const ObserverToken token =
        bridge.onCommand([&](const BridgeCommand& command) { received.push_back(command); });
    const auto command = [](const char* name) {
        return command::SaveProfiles{{{UUID(), name, kind::Schedule{}}}};
    };
    bridge.send(command("a\xFF"));
    EXPECT_EQ(received, std::vector<BridgeCommand>{command("a\xEF\xBF\xBD")});
}

TEST_F(BridgeTest, CarriesEveryCommand) {
    std::vector<BridgeCommand> received;
    const ObserverToken token =
        bridge.onCommand([&](const BridgeCommand& command) { received.push_back(command); });
    const std::vector<BridgeCommand> commands{
        command::Select{action::Profile{UUID::random()}},
        command::StartTimer{action::Automatic{}, 1800},
        command::SaveProfiles{{{UUID::random(), "n", kind::Load{{{{0, 0}, {100, 1}}}}}}},
        command::SetLaunchAtLogin{true},
        command::CancelTimer{},
        command::CheckForUpdates{},
        command::RequestState{}};
    for (const BridgeCommand& command : commands)
        bridge.send(command);
    EXPECT_EQ(received, commands);
}

TEST_F(BridgeTest, CarriesAState) {
    std::vector<BridgeState> received;
    const ObserverToken token =
        bridge.onState([&](const BridgeState& state) { received.push_back(state); });
    const BridgeState state{
        action::Fixed{0.3}, action::Automatic{}, Date{785000000.5}, "3 rpm / s", true, {}};
    bridge.publish(state);
    EXPECT_EQ(received, std::vector<BridgeState>{state});
}

TEST_F(BridgeTest, IgnoresWhatDoesNotDecode) {
    int states = 0;
    int commands = 0;
    const ObserverToken onState = bridge.onState([&](const BridgeState&) { ++states; });
    const ObserverToken onCommand = bridge.onCommand([&](const BridgeCommand&) { ++commands; });
    center.post(Bridge::stateName, std::nullopt);
    center.post(Bridge::stateName, "");
    center.post(Bridge::stateName, "{}");
    center.post(Bridge::stateName, R"({"selection":{"automatic":{}},"launchAtLogin":false})");
    center.post(Bridge::commandName, std::nullopt);
    center.post(Bridge::commandName, R"({"cancelTimer":{},"requestState":{}})");
    EXPECT_EQ(states, 0);
    EXPECT_EQ(commands, 0);
    center.post(Bridge::stateName,
                R"({"selection":{"automatic":{}},"launchAtLogin":false,"profiles":[]})");
    EXPECT_EQ(states, 1);
}

TEST_F(BridgeTest, RefusesALongTextUnread) {
    int states = 0;
    const ObserverToken token = bridge.onState([&](const BridgeState&) { ++states; });
    std::string text = encode(BridgeState());
    text.resize(Bridge::maximumTextSize, ' ');
    center.post(Bridge::stateName, text);
    EXPECT_EQ(states, 1);
    center.post(Bridge::stateName, text + " ");
    EXPECT_EQ(states, 1);
}

TEST_F(BridgeTest, SendsNoTextThatNobodyReads) {
    const auto& objects = posted(Bridge::stateName);
    BridgeState state;
    const std::size_t shell = R"(,"status":"")"sv.size() + encode(state).size();
    state.status = std::string(Bridge::maximumTextSize - shell, 's');
    EXPECT_TRUE(Bridge::fits(state));
    bridge.publish(state);
    EXPECT_EQ(objects.size(), 1U);
    *state.status += 's';
    EXPECT_FALSE(Bridge::fits(state));
    bridge.publish(state);
    EXPECT_EQ(objects.size(), 1U);
}

TEST_F(BridgeTest, HasRoomForManyTimesTheProfilesThatPeopleMake) {
    BridgeState state{action::Profile{UUID::random()},
                      action::Profile{UUID::random()},
                      Date{785000000.123456},
                      std::string(200, 's'),
                      true,
                      {}};
    Curve curve;
    for (int i = 0; i < Profile::maxPoints; ++i)
        curve.points.push_back({40.123456789012345 + i, 0.123456789012345 + i / 10.0});
    for (int i = 0; i < 40; ++i)
        state.profiles.push_back(
            {UUID::random(), "A profile with a rather long name",
             kind::Temperature{TemperatureInput::averageOf(SensorGroup::memory), curve}});
    EXPECT_LT(encode(state).size(), Bridge::maximumTextSize / 6);
}

TEST_F(BridgeTest, HearsOfQuittingWhateverItCarries) {
    int count = 0;
    const ObserverToken token = bridge.onQuitWindow([&] { ++count; });
    bridge.quitWindow();
    center.post(Bridge::quitName, "anything");
    EXPECT_EQ(count, 2);
}

TEST_F(BridgeTest, StopsListeningWhenTheTokenIsLetGo) {
    int count = 0;
    ObserverToken command = bridge.onCommand([&](const BridgeCommand&) { ++count; });
    ObserverToken state = bridge.onState([&](const BridgeState&) { ++count; });
    ObserverToken quit = bridge.onQuitWindow([&] { ++count; });
    command.reset();
    state.reset();
    quit.reset();
    bridge.send(command::RequestState{});
    bridge.publish({});
    bridge.quitWindow();
    EXPECT_EQ(count, 0);
}

} // namespace tervale
