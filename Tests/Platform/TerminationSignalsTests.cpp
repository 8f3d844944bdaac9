#include "Platform/TerminationSignals.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <thread>

using namespace tervale;
using namespace std::chrono_literals;

TEST(TerminationSignalsTest, AreNotedWhileTheEventLoopWaitsAndHandledByIt) {
    int handled = 0;
    const TerminationSignals termination([&] { ++handled; });
    EXPECT_FALSE(termination.arriveWithin(0ms));
    std::raise(SIGTERM);
    EXPECT_TRUE(termination.arriveWithin(0ms));
    EXPECT_EQ(handled, 0) << "the event loop has not run";
    QCoreApplication::processEvents();
    EXPECT_EQ(handled, 1);
    EXPECT_FALSE(termination.arriveWithin(0ms));
}

TEST(TerminationSignalsTest, EndAWaitForThem) {
    const TerminationSignals termination([] {});
    QElapsedTimer waited;
    waited.start();
    EXPECT_FALSE(termination.arriveWithin(50ms));
    EXPECT_GE(waited.elapsed(), 49);
    std::thread sender([] {
        std::this_thread::sleep_for(20ms);
        std::raise(SIGTERM);
    });
    waited.start();
    EXPECT_TRUE(termination.arriveWithin(10s));
    EXPECT_LT(waited.elapsed(), 5000);
    sender.join();
}
