#include "TervaleWindow/Model/RepeatingTimer.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace tervale;
using namespace std::chrono_literals;

TEST(ToolkitTimer, CallsAgainAndAgainAsLongAsItLives) {
    int calls = 0;
    auto timer = makeToolkitTimer(1ms, 0ms, [&calls] { ++calls; });
    EXPECT_TRUE(QTest::qWaitFor([&calls] { return calls >= 3; }));
    timer.reset();
    const int before = calls;
    // Another one shows that the loop has had time for more calls.
    int others = 0;
    timer = makeToolkitTimer(1ms, 0ms, [&others] { ++others; });
    EXPECT_TRUE(QTest::qWaitFor([&others] { return others >= 3; }));
    EXPECT_EQ(calls, before);
}
