#include "Platform/Linux/BusProbe.h"
#include "Support/PrivateBus.h"
#include "Support/SilentSocket.h"

#include <gtest/gtest.h>

#include <csignal>
#include <optional>
#include <string>

using namespace tervale;

namespace {

class BusProbeTest : public testing::Test {
  protected:
    /// Nothing if it is never told.
    std::optional<bool> answers() const {
        std::optional<bool> told;
        const BusProbe probe(bus.busSocket().string(), [&](bool does) { told = does; });
        EXPECT_FALSE(told) << "only from the event loop";
        EXPECT_TRUE(eventually([&] { return told.has_value(); }));
        return told;
    }

    PrivateBus bus;
};

} // namespace

TEST_F(BusProbeTest, FindsABusThatAnswers) {
    EXPECT_EQ(answers(), true);
    EXPECT_TRUE(bus.connect().isConnected()) << "which serves others as before";
}

TEST_F(BusProbeTest, FindsNoneWhereNobodyListens) {
    bus.stop();
    EXPECT_EQ(answers(), false);
    std::filesystem::remove(bus.busSocket());
    EXPECT_EQ(answers(), false);
}

TEST_F(BusProbeTest, FindsNoneThatIsHaltedUntilItGoesOn) {
    bus.send(SIGSTOP);
    EXPECT_EQ(answers(), false);
    bus.send(SIGCONT);
    EXPECT_EQ(answers(), true);
}

TEST_F(BusProbeTest, TellsNobodyOnceItIsGone) {
    int told = 0;
    {
        const BusProbe probe(bus.busSocket().string(), [&](bool) { ++told; });
    }
    EXPECT_EQ(answers(), true);
    EXPECT_EQ(told, 0);
}

TEST(BusSocket, IsFoundInAnAddress) {
    EXPECT_EQ(busSocket("unix:path=/run/user/7/bus"), "/run/user/7/bus");
    EXPECT_EQ(busSocket("unix:guid=12,path=/a%20b,x=y;tcp:host=h"), "/a b");
    EXPECT_EQ(busSocket("unix:abstract=/tmp/x"), std::string("\0/tmp/x", 7));
    for (const char* other :
         {"", "unix:", "unix:tmpdir=/tmp", "tcp:host=h,port=1", "autolaunch:", "unix:path=%4"})
        EXPECT_EQ(busSocket(other), std::nullopt) << other;
}
