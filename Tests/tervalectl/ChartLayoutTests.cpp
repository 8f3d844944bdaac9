#include "tervalectl/ChartLayout.h"
#include "tervalectl/SampleChart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

using namespace tervale;

namespace {

class ChartLayoutTest : public testing::Test {
  protected:
    static constexpr double width = 960;
    static constexpr double height = 540;
    Chart chart = sampleChart();
    ChartLayout layout = chartLayout(width, height, chart.celsius());
};

} // namespace

TEST_F(ChartLayoutTest, HasOnePlotAboveTheOther) {
    EXPECT_GT(layout.heat.left, 0);
    EXPECT_GT(layout.heat.top, 0);
    EXPECT_LT(layout.heat.bottom(), layout.speed.top);
    EXPECT_LT(layout.speed.bottom(), height);
    EXPECT_EQ(layout.heat.left, layout.speed.left);
    EXPECT_EQ(layout.heat.right(), layout.speed.right());
    EXPECT_LT(layout.heat.right(), width);
}

TEST_F(ChartLayoutTest, MapsTheAxesOntoThePlots) {
    EXPECT_EQ(layout.yOfCelsius(20), layout.heat.bottom());
    EXPECT_EQ(layout.yOfCelsius(layout.celsius.upper), layout.heat.top);
    EXPECT_EQ(layout.yOfFraction(0), layout.speed.bottom());
    EXPECT_EQ(layout.yOfFraction(1), layout.speed.top);
    EXPECT_EQ(layout.x(0), layout.heat.left);
    EXPECT_EQ(layout.x(1), layout.heat.right());
}

TEST_F(ChartLayoutTest, DrawsHotterHigherAndLaterFurtherRight) {
    const auto stretches = heatLine(chart, layout, &ChartSample::driving);
    ASSERT_EQ(stretches.size(), 1U);
    ASSERT_EQ(stretches[0].size(), chart.samples().size());
    for (std::size_t i = 1; i < stretches[0].size(); ++i) {
        EXPECT_LT(stretches[0][i].y, stretches[0][i - 1].y);
        EXPECT_GT(stretches[0][i].x, stretches[0][i - 1].x);
    }
}

TEST_F(ChartLayoutTest, KeepsEveryLineWithinItsPlot) {
    ChartSample wild = chart.samples().back();
    for (const double value : {-1e300, 1e300, std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()}) {
        wild.time += 1;
        wild.driving = value;
        wild.target = value;
        chart.add(wild);
    }
    for (const ChartStretch& stretch : heatLine(chart, layout, &ChartSample::driving)) {
        for (const ChartPoint& point : stretch)
            EXPECT_TRUE(layout.heat.contains(point.x, point.y)) << point.x << ' ' << point.y;
    }
    for (const ChartStretch& stretch : speedLine(chart, layout, &ChartSample::target)) {
        for (const ChartPoint& point : stretch)
            EXPECT_TRUE(layout.speed.contains(point.x, point.y)) << point.x << ' ' << point.y;
    }
}

TEST_F(ChartLayoutTest, LeavesAGapWhereThereIsNoValue) {
    ChartSample gap = chart.samples().back();
    gap.time += 1;
    gap.target.reset();
    chart.add(gap);
    gap.time += 1;
    gap.target = 0.5;
    chart.add(gap);
    const auto stretches = speedLine(chart, layout, &ChartSample::target);
    ASSERT_EQ(stretches.size(), 2U);
    EXPECT_EQ(stretches[1].size(), 1U);
    EXPECT_TRUE(speedLine(chart, layout, &ChartSample::load).empty());
}

TEST_F(ChartLayoutTest, KeepsPeaksHoweverManySamplesThereAre) {
    Chart many("");
    for (int i = 0; i < 10'000; ++i) {
        ChartSample sample;
        sample.time = i;
        sample.cpu = i == 5'003 ? 90 : 50;
        many.add(sample);
    }
    const auto stretches = heatLine(many, layout, &ChartSample::cpu);
    ASSERT_EQ(stretches.size(), 1U);
    EXPECT_LE(stretches[0].size(), static_cast<std::size_t>(4 * width));
    const auto top = std::ranges::min(stretches[0], {}, &ChartPoint::y);
    EXPECT_EQ(top.y, layout.yOfCelsius(90));
}

TEST_F(ChartLayoutTest, MarksWhereSafetyIsEngaged) {
    const auto bands = safetyBands(chart, layout, 2);
    ASSERT_EQ(bands.size(), 1U);
    EXPECT_NEAR(bands[0].lower, layout.x(40 / 60.0), 1e-9);
    EXPECT_NEAR(bands[0].upper, layout.x(50 / 60.0), 1e-9);
    Chart last("");
    ChartSample sample;
    sample.safety = true;
    last.add(sample);
    ASSERT_EQ(safetyBands(last, layout, 2).size(), 1U);
    EXPECT_GE(safetyBands(last, layout, 2)[0].span(), 2) << "one moment of it is seen too";
}

TEST_F(ChartLayoutTest, TellsTheTimesFromTheFirstToTheLast) {
    const auto times = chartTimes(chart, layout, 5);
    ASSERT_EQ(times.size(), 5U);
    EXPECT_EQ(times.front().text, "10:00:00");
    EXPECT_EQ(times[2].text, "10:00:30");
    EXPECT_EQ(times.back().text, "10:01:00");
    EXPECT_EQ(times.back().x, layout.heat.right());
    EXPECT_TRUE(chartTimes(Chart(""), layout, 5).empty());
}
