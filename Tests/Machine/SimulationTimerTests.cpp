#include "Machine/SimulationTimer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

namespace tervale {
namespace {

using namespace std::chrono_literals;

TEST(SimulationTimer, LetsTimePassAtTheSpeedAskedFor) {
    EXPECT_DOUBLE_EQ(SimulationTimer::step(200ms, 1), 0.2);
    EXPECT_DOUBLE_EQ(SimulationTimer::step(200ms, 60), 12);
}

TEST(SimulationTimer, GoesOnAboutWhereItWasAfterTheMachineSlept) {
    EXPECT_DOUBLE_EQ(SimulationTimer::step(8h, 1), SimulationTimer::longestStep);
    EXPECT_DOUBLE_EQ(SimulationTimer::step(8h, 10), 10 * SimulationTimer::longestStep);
}

TEST(SimulationTimer, MovesTheSimulationOnFromTheEventLoopUntilItIsStopped) {
    Simulation simulation({.scenario = Scenario::idle, .fillers = 0});
    SimulationTimer timer(simulation, 1ms, 100);
    const QDeadlineTimer deadline(10000);
    while (simulation.clock().now() < Date{1} && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_GE(simulation.clock().now(), Date{1});
    timer.stop();
    const Date stopped = simulation.clock().now();
    const QDeadlineTimer soon(20);
    while (!soon.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    EXPECT_EQ(simulation.clock().now(), stopped);
}

} // namespace
} // namespace tervale
