#include "Platform/Linux/ProcStat.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

TEST(ProcStat, CountsIdleAndWaitingAsNotBusy) {
    const auto times = parseProcStat("cpu  100 20 30 1000 50 6 7 8 90 10\n"
                                     "cpu0 1 2 3 4 5 6 7 8 9 10\n"
                                     "intr 12345\n");
    EXPECT_EQ(times, (ProcessorTimes{.busy = 171, .total = 1221}));
}

TEST(ProcStat, LeavesOutGuestsBecauseTheyAreUsersToo) {
    EXPECT_EQ(parseProcStat("cpu  1 1 1 1 1 1 1 1 500 500\n"),
              parseProcStat("cpu  1 1 1 1 1 1 1 1\n"));
}

TEST(ProcStat, TakesTheShortLineOfOldSystems) {
    EXPECT_EQ(parseProcStat("cpu 10 20 30 40"), (ProcessorTimes{.busy = 60, .total = 100}));
}

TEST(ProcStat, ReadsTheFirstLineOnly) {
    EXPECT_EQ(parseProcStat("cpu  10 20\ncpu0 30 40\n"), std::nullopt);
}

TEST(ProcStat, TellsNothingFromAnyOtherText) {
    EXPECT_EQ(parseProcStat(""), std::nullopt);
    EXPECT_EQ(parseProcStat("cpu "), std::nullopt);
    EXPECT_EQ(parseProcStat("cpu0 1 2 3 4 5"), std::nullopt);
    EXPECT_EQ(parseProcStat("cpu  one two three four"), std::nullopt);
    EXPECT_EQ(parseProcStat("cpu  -1 2 3 4"), std::nullopt);
    EXPECT_EQ(parseProcStat("intr 1 2 3 4"), std::nullopt);
}

} // namespace
} // namespace tervale
