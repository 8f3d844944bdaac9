#include "Platform/macOS/Foundation/FoundationSession.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

/// Two programs of one session.
class DistributedNotificationCenterTest : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(session.serves());
        observer = session.start();
        poster = session.start();
    }
    void TearDown() override {
        EXPECT_TRUE(observer->ends());
        EXPECT_TRUE(poster->ends());
    }
    void observe(const QByteArray& name) { EXPECT_TRUE(observer->does("observe " + name)); }
    void post(const QByteArray& name) { EXPECT_TRUE(poster->does("post " + name)); }
    void post(const QByteArray& name, const QByteArray& text) {
        EXPECT_TRUE(poster->does("post " + name + " x" + text.toHex()));
    }

    FoundationSession session;
    std::unique_ptr<AdapterProgram> observer;
    std::unique_ptr<AdapterProgram> poster;
};

QByteArray digits(const QByteArray& text) {
    return 'x' + text.toHex();
}

const QByteArray replacement = "\xEF\xBF\xBD";

} // namespace

TEST_F(DistributedNotificationCenterTest, DeliversTheStringOfEveryNotificationOfTheName) {
    observe("a.b");
    const QByteArray json = R"({"name":"5 °C 🌡","points":[1,2.5]})";
    post("a.b", json);
    post("a.c", "another name");
    post("a.b");
    post("a.b", "");
    EXPECT_TRUE(observer->receives("a.b", {digits(json), "nothing", "x"}));
}

TEST_F(DistributedNotificationCenterTest, DeliversLongStrings) {
    observe("a.b");
    const QByteArray text(100'000, 'z');
    post("a.b", text);
    EXPECT_TRUE(observer->receives("a.b", {digits(text)}));
}

TEST_F(DistributedNotificationCenterTest, DeliversZerosWithinAString) {
    observe("a.b");
    const QByteArray text("\0a\0\0b\0", 6);
    post("a.b", text);
    EXPECT_TRUE(observer->receives("a.b", {digits(text)}));
}

TEST_F(DistributedNotificationCenterTest, RepairsWhatIsNoText) {
    observe("a.b");
    post("a.b", "\xFF"
                "A\xC3");
    post("a.b", "\xE2\x82"
                "A");
    post("a.b", "\xF0\x9F\x8C");
    post("a.b", "\x80\xC3\xA9\xFE");
    EXPECT_TRUE(observer->receives("a.b", {digits(replacement + 'A' + replacement),
                                           digits(replacement + replacement + 'A'),
                                           digits(replacement + replacement + replacement),
                                           digits(replacement + "\xC3\xA9" + replacement)}));
}

TEST_F(DistributedNotificationCenterTest, TakesAnyOtherObjectForNoString) {
    QList<QByteArray> expected;
    observe("a.b");
    for (const char* kind : {"number", "list", "data"}) {
        EXPECT_TRUE(poster->does(QByteArray("post-") + kind + " a.b"));
        expected << "nothing";
        EXPECT_TRUE(observer->receives("a.b", expected)) << kind;
    }
}

TEST_F(DistributedNotificationCenterTest, DeliversOnTheMainThread) {
    EXPECT_TRUE(observer->does("connect-on-thread"));
    observe("a.b");
    post("a.b", "1");
    EXPECT_TRUE(observer->receives("a.b", {digits("1")}));
}

TEST_F(DistributedNotificationCenterTest, DeliversToAProgramThatTheSystemSuspends) {
    observe("a.b");
    EXPECT_TRUE(observer->does("suspend a.b"));
    post("a.b", "at once");
    EXPECT_TRUE(observer->receives("a.b", {digits("at once")}));
}

TEST_F(DistributedNotificationCenterTest, DeliversToEveryObserverAlsoOnesOwn) {
    observe("a.b");
    EXPECT_TRUE(poster->does("observe a.b"));
    post("a.b", "1");
    EXPECT_TRUE(observer->receives("a.b", {digits("1")}));
    EXPECT_TRUE(poster->receives("a.b", {digits("1")}));
}

TEST_F(DistributedNotificationCenterTest, StopsWhenTheTokenIsLetGo) {
    observe("a.b");
    observe("staying");
    post("a.b", "1");
    EXPECT_TRUE(observer->receives("a.b", {digits("1")}));
    EXPECT_TRUE(observer->does("let-go a.b"));
    post("a.b", "2");
    post("staying", "3");
    EXPECT_TRUE(observer->receives("staying", {digits("3")}));
    EXPECT_TRUE(observer->receives("a.b", {digits("1")}));
}

TEST_F(DistributedNotificationCenterTest, LetsAHandlerLetItselfGo) {
    observe("a.b");
    observe("staying");
    post("a.b", "let go");
    post("a.b", "2");
    post("staying", "3");
    EXPECT_TRUE(observer->receives("staying", {digits("3")}));
    EXPECT_TRUE(observer->receives("a.b", {digits("let go")}));
}

TEST_F(DistributedNotificationCenterTest, FreesTheHandlersThatWereLetGo) {
    EXPECT_EQ(observer->does("count-owners"), "1\n");
    observe("a.b");
    observe("a.c");
    EXPECT_EQ(observer->does("count-owners"), "3\n");
    EXPECT_TRUE(observer->does("let-go a.c"));
    EXPECT_EQ(observer->does("count-owners"), "2\n");
    post("a.b", "let go");
    EXPECT_TRUE(observer->receives("a.b", {digits("let go")}));
    EXPECT_EQ(observer->does("count-owners"), "1\n");
    observe("a.b");
    EXPECT_TRUE(observer->does("forget-center"));
    EXPECT_EQ(observer->does("count-owners"), "1\n");
}

TEST_F(DistributedNotificationCenterTest, LeavesNoObjectsBehind) {
    EXPECT_EQ(observer->does("count-left"), "little left\n");
}

TEST_F(DistributedNotificationCenterTest, ObservesAgainWhatItHadLetGo) {
    observe("a.b");
    EXPECT_TRUE(observer->does("let-go a.b"));
    observe("a.b");
    post("a.b", "1");
    EXPECT_TRUE(observer->receives("a.b", {digits("1")}));
}

TEST_F(DistributedNotificationCenterTest, AllowsATokenToOutliveTheCenter) {
    observe("a.b");
    EXPECT_TRUE(observer->does("forget-center"));
    EXPECT_TRUE(observer->does("let-go a.b"));
}
