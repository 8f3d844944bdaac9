#include "Platform/Linux/DBusNotificationCenter.h"
#include "Profiles/Bridge.h"
#include "Support/PrivateBus.h"
#include "Support/SilentSocket.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

using namespace tervale;

namespace {

using Received = std::vector<std::optional<std::string>>;

class DBusNotificationCenterTest : public testing::Test {
  protected:
    /// Observes, and waits until the bus knows of it: others could be faster.
    [[nodiscard]] ObserverToken observe(const std::string& name,
                                        NotificationCenter::Handler handler) {
        ObserverToken token = center.observe(name, std::move(handler));
        PrivateBus::settle(connection);
        return token;
    }
    [[nodiscard]] ObserverToken collect(const std::string& name, Received& received) {
        return observe(
            name, [&](const std::optional<std::string>& object) { received.push_back(object); });
    }
    /// Emits a signal with the arguments, whatever they are.
    void emitRaw(const QVariantList& arguments, const char* path = "/com/velnor/tervale",
                 const char* interface = "com.velnor.tervale.NotificationCenter",
                 const char* member = "Posted") {
        QDBusMessage message = QDBusMessage::createSignal(path, interface, member);
        message.setArguments(arguments);
        stranger.send(message);
    }

    PrivateBus bus;
    QDBusConnection stranger = bus.connect();
    QDBusConnection connection = bus.connect();
    DBusNotificationCenter center{connection};
    DBusNotificationCenter other{bus.connect()};
};

} // namespace

TEST_F(DBusNotificationCenterTest, DeliversTheStringOfEveryNotificationOfTheName) {
    Received received;
    const ObserverToken token = collect("a.b", received);
    const std::string text = "{\"name\":\"5 °C 🌡 \\u0000\"}";
    other.post("a.b", text);
    other.post("a.c", "another name");
    other.post("a.b", std::nullopt);
    other.post("a.b", "");
    ASSERT_TRUE(eventually([&] { return received.size() == 3; }));
    EXPECT_EQ(received, (Received{text, std::nullopt, ""}));
}

TEST_F(DBusNotificationCenterTest, DeliversItsOwnPostsAndCallsEveryObserver) {
    Received first;
    Received second;
    const ObserverToken firstToken = collect("a.b", first);
    const ObserverToken secondToken = collect("a.b", second);
    center.post("a.b", "x");
    ASSERT_TRUE(eventually([&] { return first.size() == 1 && second.size() == 1; }));
}

TEST_F(DBusNotificationCenterTest, DeliversOnTheMainThreadWhatAnyThreadPosts) {
    std::thread::id deliveredOn;
    const ObserverToken token =
        observe("a.b", [&](const auto&) { deliveredOn = std::this_thread::get_id(); });
    std::thread([&] { other.post("a.b", "x"); }).join();
    ASSERT_TRUE(eventually([&] { return deliveredOn != std::thread::id(); }));
    EXPECT_EQ(deliveredOn, std::this_thread::get_id());
}

TEST_F(DBusNotificationCenterTest, StopsWhenTheTokenIsLetGo) {
    Received received;
    Received all;
    ObserverToken token = collect("a.b", received);
    const ObserverToken staying = collect("a.b", all);
    other.post("a.b", "1");
    ASSERT_TRUE(eventually([&] { return all.size() == 1 && received.size() == 1; }));
    other.post("a.b", "2");
    token.reset();
    other.post("a.b", "3");
    ASSERT_TRUE(eventually([&] { return all.size() == 3; }));
    EXPECT_EQ(received, (Received{"1"}));
}

TEST_F(DBusNotificationCenterTest, LetsAHandlerLetItselfGo) {
    int calls = 0;
    Received all;
    ObserverToken token;
    token = observe("a.b", [&, owned = std::string(100, 'x')](const auto&) {
        token.reset();
        calls += static_cast<int>(owned.size());
    });
    const ObserverToken staying = collect("a.b", all);
    other.post("a.b", "1");
    other.post("a.b", "2");
    ASSERT_TRUE(eventually([&] { return all.size() == 2; }));
    EXPECT_EQ(calls, 100);
}

TEST_F(DBusNotificationCenterTest, AllowsATokenToOutliveTheCenter) {
    auto brief = std::make_unique<DBusNotificationCenter>(bus.connect());
    ObserverToken token = brief->observe("a.b", [](const auto&) {});
    brief.reset();
    token.reset();
}

TEST_F(DBusNotificationCenterTest, TakesOtherArgumentsForNoString) {
    Received received;
    const ObserverToken token = collect("a.b", received);
    const QString name = "a.b";
    emitRaw({name, 7});
    emitRaw({name, QByteArray("\xff\xfe\x80")});
    emitRaw({name, QVariant::fromValue(QDBusVariant(QString("{}")))});
    emitRaw({name, QVariant::fromValue(QDBusObjectPath("/a"))});
    emitRaw({name, QStringList{"{}"}});
    emitRaw({name, QString("{}"), 1});
    emitRaw({name});
    ASSERT_TRUE(eventually([&] { return received.size() == 7; }));
    EXPECT_EQ(received, Received(7, std::nullopt));
}

TEST_F(DBusNotificationCenterTest, IgnoresOtherSignals) {
    Received received;
    const ObserverToken token = collect("a.b", received);
    emitRaw({});
    emitRaw({7, QString("a.b")});
    emitRaw({QStringList{"a.b"}});
    emitRaw({QString("a.b"), QString("x")}, "/com/velnor/other");
    emitRaw({QString("a.b"), QString("x")}, "/com/velnor/tervale", "com.velnor.tervale.Other");
    emitRaw({QString("a.b"), QString("x")}, "/com/velnor/tervale",
            "com.velnor.tervale.NotificationCenter", "Sent");
    emitRaw({QString("a.b"), QString("last")});
    ASSERT_TRUE(eventually([&] { return !received.empty(); }));
    EXPECT_EQ(received, (Received{"last"}));
}

TEST_F(DBusNotificationCenterTest, RepairsWhatIsNoText) {
    Received received;
    const ObserverToken token = collect("a.b", received);
    other.post("a.b", "a\xff"
                      "b");
    ASSERT_TRUE(eventually([&] { return received.size() == 1; }));
    EXPECT_EQ(received, (Received{"a\xEF\xBF\xBD"
                                  "b"}));
}

TEST_F(DBusNotificationCenterTest, CarriesTenMegabytes) {
    Received received;
    const ObserverToken token = collect("a.b", received);
    const std::string text(10'000'000, 'x');
    other.post("a.b", text);
    ASSERT_TRUE(eventually([&] { return received.size() == 1; }));
    EXPECT_TRUE(received[0] == text);
}

TEST_F(DBusNotificationCenterTest, DropsWhatNoBusCarriesAndGoesOn) {
    Received received;
    const ObserverToken token = collect("a.b", received);
    other.post("a.b", std::string((std::size_t{1} << 26) + 1, 'x'));
    other.post("a.b", "short");
    ASSERT_TRUE(eventually([&] { return !received.empty(); }));
    EXPECT_EQ(received, (Received{"short"}));
}

TEST_F(DBusNotificationCenterTest, DeliversABurstInOrder) {
    constexpr std::size_t count = 10'000;
    Received received;
    const ObserverToken token = collect("a.b", received);
    for (std::size_t i = 0; i < count; ++i)
        other.post("a.b", std::to_string(i));
    ASSERT_TRUE(eventually([&] { return received.size() == count; }));
    for (std::size_t i = 0; i < count; ++i)
        ASSERT_EQ(received[i], std::to_string(i));
}

TEST_F(DBusNotificationCenterTest, LosesWhatIsPostedOnceTheBusIsGone) {
    auto doomed = std::make_unique<PrivateBus>();
    QDBusConnection doomedConnection = doomed->connect();
    DBusNotificationCenter left(doomedConnection);
    const ObserverToken token = left.observe("a.b", [](const auto&) {});
    ASSERT_TRUE(doomedConnection.isConnected());
    doomed.reset();
    ASSERT_TRUE(eventually([&] { return !doomedConnection.isConnected(); }));
    left.post("a.b", "x");
    const ObserverToken late = left.observe("a.c", [](const auto&) {});
}

TEST_F(DBusNotificationCenterTest, FindsABusThatIsAtTheAddressAgain) {
    std::vector<Channel> channels;
    Received received;
    DBusNotificationCenter lasting([this] { return bus.connect(); });
    const ObserverToken channelToken =
        lasting.observeChannel([&](Channel channel) { channels.push_back(channel); });
    const ObserverToken before =
        lasting.observe("a.b", [&](const auto& object) { received.push_back(object); });
    for (int round = 0; round < 3; ++round) {
        received.clear();
        channels.clear();
        bus.stop();
        ASSERT_TRUE(eventually([&] { return channels.size() == 1; }));
        EXPECT_EQ(channels[0], Channel::gone);
        lasting.post("a.b", "lost");
        const ObserverToken meanwhile =
            lasting.observe("a.c", [&](const auto& object) { received.push_back(object); });
        bus.start();
        ASSERT_TRUE(eventually([&] { return channels.size() == 2; }));
        EXPECT_EQ(channels[1], Channel::back);
        lasting.post("a.b", "own");
        lasting.post("a.c", "new");
        ASSERT_TRUE(eventually([&] { return received.size() == 2; }));
        EXPECT_EQ(received, (Received{"own", "new"}));
    }
}

TEST_F(DBusNotificationCenterTest, LooksForABusLessAndLessOften) {
    int attempts = 0;
    std::vector<Channel> channels;
    DBusNotificationCenter lasting([&] {
        ++attempts;
        return bus.connect();
    });
    const ObserverToken token =
        lasting.observeChannel([&](Channel channel) { channels.push_back(channel); });
    bus.stop();
    QElapsedTimer time;
    time.start();
    ASSERT_TRUE(eventually([&] { return attempts == 4; }));
    // 250, 500 and 1000 ms, each of which the toolkit may shorten by a twentieth.
    EXPECT_GE(time.elapsed(), 1660);
    EXPECT_EQ(channels, std::vector{Channel::gone});
}

TEST_F(DBusNotificationCenterTest, KeepsNobodyWaitingForABusThatDoesNotAnswer) {
    std::vector<Channel> channels;
    int attempts = 0;
    DBusNotificationCenter lasting(
        [&] {
            ++attempts;
            return bus.connect();
        },
        bus.address().toStdString());
    const ObserverToken token =
        lasting.observeChannel([&](Channel channel) { channels.push_back(channel); });
    bus.stop();
    {
        const SilentSocket silent(bus.busSocket());
        QElapsedTimer time;
        time.start();
        qint64 longest = 0;
        for (qint64 last = 0; last < 3000;) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            longest = std::max(longest, time.elapsed() - last);
            last = time.elapsed();
        }
        EXPECT_LT(longest, 500);
        EXPECT_EQ(attempts, 1) << "that of the beginning";
        EXPECT_EQ(channels, std::vector{Channel::gone});
    }
    bus.start();
    EXPECT_TRUE(eventually([&] { return channels.size() == 2; }));
    EXPECT_EQ(attempts, 2);
}

TEST_F(DBusNotificationCenterTest, UnderstandsAndIsUnderstoodByOthersTools) {
    const auto monitor = bus.monitor();
    Received received;
    const ObserverToken token = collect("com.velnor.tervale.state", received);
    ASSERT_TRUE(bus.emitWithTool({"'com.velnor.tervale.state'", "'{\"°C\":1}'"}));
    ASSERT_TRUE(bus.emitWithTool({"'com.velnor.tervale.state'"}));
    ASSERT_TRUE(bus.emitWithTool({}));
    ASSERT_TRUE(bus.emitWithTool({"'com.velnor.tervale.state'", "uint32 7"}));
    ASSERT_TRUE(eventually([&] { return received.size() == 3; }));
    EXPECT_EQ(received, (Received{"{\"°C\":1}", std::nullopt, std::nullopt}));

    Bridge(center).send(command::RequestState{});
    ASSERT_TRUE(monitor->says("{\"requestState\":{}}"));
    Bridge(center).quitWindow();
    ASSERT_TRUE(monitor->says("com.velnor.tervale.quit-window\"\n"));
    EXPECT_TRUE(monitor->output().contains(
        "path=/com/velnor/tervale; interface=com.velnor.tervale.NotificationCenter; "
        "member=Posted\n   string \"com.velnor.tervale.command\"\n"
        "   string \"{\"requestState\":{}}\"\n"))
        << monitor->output().constData();
    EXPECT_FALSE(monitor->output().contains("quit-window\"\n   string"));
}

TEST_F(DBusNotificationCenterTest, MakesNoBridgeObserverCallOfRubbish) {
    int states = 0;
    Bridge bridge(center);
    const ObserverToken token = bridge.onState([&](const BridgeState&) { ++states; });
    PrivateBus::settle(connection);
    for (const char* text :
         {"", "{", "null", "7", "\"\"", "[]", "{}", "[{}]", "{\"selection\":7}",
          "{\"selection\":{\"automatic\":{}},\"launchAtLogin\":false}",
          "{\"selection\":{\"automatic\":{}},\"launchAtLogin\":0,\"profiles\":[]}",
          "{\"selection\":{},\"launchAtLogin\":false,\"profiles\":[]}"})
        other.post(Bridge::stateName, text);
    other.post(Bridge::stateName, std::string(1'000'000, '['));
    other.post(Bridge::stateName, std::nullopt);
    other.post(Bridge::stateName,
               "{\"selection\":{\"automatic\":{}},\"launchAtLogin\":false,\"profiles\":[]}");
    ASSERT_TRUE(eventually([&] { return states > 0; }));
    EXPECT_EQ(states, 1);
}
