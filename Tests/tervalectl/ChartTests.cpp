#include "tervalectl/Chart.h"
#include "tervalectl/SampleChart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

using namespace tervale;

namespace {

ChartSample at(double time) {
    ChartSample sample;
    sample.time = time;
    return sample;
}

std::vector<std::string> titlesOf(const Chart& chart) {
    std::vector<std::string> titles;
    for (const ChartSeries& series : chart.temperatures())
        titles.push_back(series.title);
    return titles;
}

constexpr Fan held{
    .index = 0, .actual = 2000, .target = 3000, .min = 1000, .max = 5000, .manual = true};
constexpr Fan automatic{
    .index = 1, .actual = 4000, .target = 1000, .min = 1000, .max = 5000, .manual = false};

} // namespace

TEST(ChartSample, HoldsWhatAReadingTells) {
    MachineReading reading{.time = 1768467725.5, .minute = 545, .load = 40};
    reading.temperatures.set(TemperatureInput::hottestOf(SensorGroup::cpu), 70);
    reading.fans = {held, automatic};
    const ChartSample sample = sampleOf(reading);
    EXPECT_EQ(sample.secondOfDay, 545 * 60 + 5);
    EXPECT_EQ(sample.cpu, 70);
    EXPECT_EQ(sample.gpu, std::nullopt);
    EXPECT_EQ(sample.load, 0.4);
    EXPECT_EQ(sample.speed, 0.5) << "a quarter and three quarters";
    EXPECT_EQ(sample.target, std::nullopt);
}

TEST(ChartSample, TargetsAreThoseOfFansThatAreHeld) {
    EXPECT_EQ(targetOf(std::vector{held, automatic}), 0.5);
    EXPECT_EQ(targetOf(std::vector{automatic}), std::nullopt);
    Fan broken = held;
    broken.max = broken.min;
    EXPECT_EQ(targetOf(std::vector{broken}), std::nullopt);
    EXPECT_EQ(targetOf({}), std::nullopt);
}

TEST(Chart, PlacesSamplesByTheirTimes) {
    Chart chart("");
    for (const double time : {100.0, 101.0, 104.0})
        chart.add(at(time));
    EXPECT_EQ(chart.place(0), 0);
    EXPECT_EQ(chart.place(1), 0.25);
    EXPECT_EQ(chart.place(2), 1);
}

TEST(Chart, PlacesSamplesByTheirOrderWhereTimesTellNone) {
    for (const std::vector<double>& times :
         {std::vector{100.0, 90.0, 110.0}, std::vector{5.0, 5.0, 5.0},
          std::vector{-1e308, 0.0, 1e308}}) {
        Chart chart("");
        for (const double time : times)
            chart.add(at(time));
        EXPECT_EQ(chart.place(1), 0.5);
        EXPECT_EQ(chart.place(2), 1);
    }
}

TEST(Chart, NamesTheTemperatureThatDrivesTheFansFirst) {
    EXPECT_EQ(titlesOf(sampleChart()),
              (std::vector<std::string>{"CPU average", "CPU hottest", "GPU hottest"}));
    Chart chart = sampleChart();
    ChartSample other = chart.samples().back();
    other.time += 1;
    other.input = TemperatureInput::hottestOf(SensorGroup::cpu);
    chart.add(other);
    EXPECT_EQ(titlesOf(chart).front(), "Reading") << "a schedule has several";
    Chart one("");
    one.add(other);
    EXPECT_EQ(titlesOf(one), (std::vector<std::string>{"CPU hottest", "GPU hottest"}));
}

TEST(Chart, HasAnAxisForWhateverIsHot) {
    EXPECT_EQ(Chart("").celsius(), (ClosedRange{20, 100}));
    EXPECT_EQ(sampleChart().celsius(), (ClosedRange{20, 110}));
    Chart wild("");
    ChartSample sample = at(1);
    sample.cpu = 1e300;
    wild.add(sample);
    EXPECT_EQ(wild.celsius(), (ClosedRange{20, 150}));
}

TEST(Chart, KeepsTheHottestOfVeryManySamples) {
    Chart chart("");
    for (int i = 0; i < 100'000; ++i) {
        ChartSample sample = at(i);
        sample.cpu = i == 54'321 ? 99 : 50;
        sample.safety = i == 54'322;
        chart.add(sample);
    }
    EXPECT_LE(chart.samples().size(), Chart::mostSamples);
    EXPECT_EQ(std::ranges::count(chart.samples(), 99, &ChartSample::cpu), 1);
    EXPECT_GE(std::ranges::count(chart.samples(), true, &ChartSample::safety), 1);
    EXPECT_EQ(chart.samples().back().time, 99'999);
}
