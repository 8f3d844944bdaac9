#include "TervaleWindow/Controls/SliderGesture.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

using Source = SliderGesture::Source;
using Report = SliderGesture::Report;
using Reports = SliderGesture::Reports;

} // namespace

TEST(SliderGesture, BeginsOnceHoweverOftenItsSourceBegins) {
    SliderGesture gesture;
    EXPECT_EQ(gesture.begin(Source::keyboard), Reports{Report::began});
    EXPECT_EQ(gesture.begin(Source::keyboard), Reports{});
    EXPECT_TRUE(gesture.isActive());
}

TEST(SliderGesture, IsEndedOnceAndByItsOwnSource) {
    SliderGesture gesture;
    gesture.begin(Source::keyboard);
    EXPECT_EQ(gesture.end(Source::pointer), Reports{});
    EXPECT_EQ(gesture.end(Source::keyboard), Reports{Report::ended});
    EXPECT_EQ(gesture.end(Source::keyboard), Reports{});
    EXPECT_EQ(gesture.endAny(), Reports{});
}

TEST(SliderGesture, GivesWayToTheNextSource) {
    SliderGesture gesture;
    gesture.begin(Source::keyboard);
    EXPECT_EQ(gesture.begin(Source::pointer), (Reports{Report::ended, Report::began}));
    EXPECT_TRUE(gesture.isHeldBy(Source::pointer));
}

TEST(SliderGesture, OfThePointerTakesInTheOthers) {
    SliderGesture gesture;
    gesture.begin(Source::pointer);
    EXPECT_EQ(gesture.begin(Source::keyboard), Reports{});
    EXPECT_EQ(gesture.end(Source::keyboard), Reports{});
    EXPECT_EQ(gesture.end(Source::pointer), Reports{Report::ended});
}
