#include "Platform/ProcessorLoad.h"
#include "Platform/macOS/FakeKernel.h"

#include <gtest/gtest.h>

using namespace tervale;

TEST(ProcessorTimes, CountEveryStateButTheIdleOneAsBusy) {
    FakeKernel kernel;
    kernel.ticks = {100, 20, 3000, 4};
    EXPECT_EQ(processorTimes(), (ProcessorTimes{124, 3124}));
}

TEST(ProcessorTimes, HoldMoreThanThirtyTwoBits) {
    FakeKernel kernel;
    kernel.ticks = {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 1};
    EXPECT_EQ(processorTimes(), (ProcessorTimes{0x1FFFFFFFF, 0x2FFFFFFFE}));
}

TEST(ProcessorTimes, AreUnknownWhenTheSystemDoesNotTellThem) {
    FakeKernel kernel;
    kernel.statisticsStatus = 5;
    EXPECT_EQ(processorTimes(), std::nullopt);
}

TEST(ProcessorTimes, GiveTheLoadBetweenTwoReadings) {
    FakeKernel kernel;
    ProcessorLoad load;
    EXPECT_EQ(load.read(), std::nullopt);
    kernel.ticks = {20, 5, 75, 0};
    EXPECT_EQ(load.read(), 25.0);
}
