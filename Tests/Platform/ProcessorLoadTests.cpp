#include "Platform/ProcessorLoad.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

TEST(ProcessorLoad, IsTheBusyShareOfTheTimeInBetween) {
    EXPECT_EQ(percentBusy({100, 1000}, {150, 1200}), 25.0);
    EXPECT_EQ(percentBusy({100, 1000}, {100, 1200}), 0.0);
    EXPECT_EQ(percentBusy({100, 1000}, {300, 1200}), 100.0);
}

TEST(ProcessorLoad, IsUnknownWhenNoTimeHasPassed) {
    EXPECT_EQ(percentBusy({100, 1000}, {100, 1000}), std::nullopt);
}

TEST(ProcessorLoad, IsUnknownWhenTheCountsStartAnew) {
    EXPECT_EQ(percentBusy({100, 1000}, {10, 100}), std::nullopt);
    EXPECT_EQ(percentBusy({100, 1000}, {90, 1100}), std::nullopt);
}

TEST(ProcessorLoad, IsNeverMoreThanAHundred) {
    EXPECT_EQ(percentBusy({0, 1000}, {300, 1100}), 100.0);
}

TEST(ProcessorLoad, IsUnknownAtTheFirstReading) {
    ProcessorLoad load;
    EXPECT_EQ(load.read(), std::nullopt);
}

TEST(ProcessorLoad, ComesFromThisMachinesTimes) {
    const auto times = processorTimes();
    ASSERT_TRUE(times.has_value());
    EXPECT_GT(times->total, 0U);
    EXPECT_LE(times->busy, times->total);
}

} // namespace
} // namespace tervale
