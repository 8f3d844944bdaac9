#include "TervaleWindow/Profiles/CurvePlot.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

// Nine pixels a degree and two a percent.
constexpr PlotRect plotRect{40, 12, 810, 200};
constexpr CurvePlot temperaturePlot{plotRect, {20, 110}};

TEST(PlotInset, LeavesThePlotWithinItsLabels) {
    EXPECT_EQ(inset({0, 0, 496, 240}, {12, 40, 26, 14}), (PlotRect{40, 12, 442, 202}));
}

TEST(PlotInset, NeverTurnsInsideOut) {
    EXPECT_EQ(inset({0, 0, 10, 10}, {12, 40, 26, 14}), (PlotRect{40, 12, 0, 0}));
}

TEST(CurvePlot, DrawsTheEndsOfTheRangeOnThePlotsCorners) {
    EXPECT_EQ(temperaturePlot.position({20, 0}), (PlotPoint{40, 212}));
    EXPECT_EQ(temperaturePlot.position({110, 1}), (PlotPoint{850, 12}));
    EXPECT_EQ(temperaturePlot.position({60, 0.35}), (PlotPoint{400, 142}));
}

TEST(CurvePlot, FindsTheValueOfAPlaceAgain) {
    for (const CurvePoint point : {CurvePoint{20, 0}, {40, 0.1}, {63, 0.29}, {95, 0.57}, {110, 1}})
        EXPECT_EQ(temperaturePlot.value(temperaturePlot.position(point)), point);
}

TEST(CurvePlot, SnapsToWholeUnitsAndWholePercent) {
    EXPECT_EQ(temperaturePlot.value({404, 142.9}), (CurvePoint{60, 0.35}));
    EXPECT_EQ(temperaturePlot.value({405, 141}), (CurvePoint{61, 0.36}));
}

TEST(CurvePlot, KeepsValuesOnThePlot) {
    EXPECT_EQ(temperaturePlot.value({-1000, -1000}), (CurvePoint{20, 1}));
    EXPECT_EQ(temperaturePlot.value({5000, 5000}), (CurvePoint{110, 0}));
    EXPECT_EQ(temperaturePlot.value({40, 212}), (CurvePoint{20, 0}));
}

TEST(CurvePlot, RoundsAFractionalRangeAfterKeepingWithinIt) {
    const CurvePlot plot{plotRect, {20.4, 110.4}};
    EXPECT_EQ(plot.value({0, 212}).x, 20);
}

TEST(CurvePlot, HasAnAnswerWithoutAnySize) {
    const CurvePlot plot{{40, 12, 0, 0}, {20, 110}};
    EXPECT_EQ(plot.value({40, 12}), (CurvePoint{20, 0}));
    EXPECT_EQ(plot.value({60, 0}), (CurvePoint{110, 1}));
}

TEST(CurvePlotHitTest, FindsNothingOnAnEmptyCurve) {
    EXPECT_EQ(temperaturePlot.nearest({40, 12}, {}), std::nullopt);
}

TEST(CurvePlotHitTest, ReachesJustUnderFourteenPixels) {
    const Curve curve{{{60, 0.5}, {100, 1}}};
    EXPECT_EQ(temperaturePlot.nearest({413.9, 112}, curve), 0U);
    EXPECT_EQ(temperaturePlot.nearest({414, 112}, curve), std::nullopt);
    EXPECT_EQ(temperaturePlot.nearest({400, 98.1}, curve), 0U);
    EXPECT_EQ(temperaturePlot.nearest({400, 98}, curve), std::nullopt);
    EXPECT_EQ(temperaturePlot.nearest({410, 122}, curve), std::nullopt);
    EXPECT_EQ(temperaturePlot.nearest({409, 121}, curve), 0U);
}

TEST(CurvePlotHitTest, PrefersTheNearerPoint) {
    const Curve curve{{{60, 0.5}, {62, 0.5}}};
    EXPECT_EQ(temperaturePlot.nearest({408, 112}, curve), 0U);
    EXPECT_EQ(temperaturePlot.nearest({410, 112}, curve), 1U);
}

TEST(CurvePlotHitTest, PrefersTheEarlierOfTwoThatAreEquallyNear) {
    const CurvePlot plot{{0, 0, 450, 200}, {20, 110}};
    EXPECT_EQ(plot.nearest({205, 100}, {{{60, 0.5}, {62, 0.5}}}), 0U);
    EXPECT_EQ(plot.nearest({205, 100}, {{{62, 0.5}, {60, 0.5}}}), 0U);
}

} // namespace
} // namespace tervale
