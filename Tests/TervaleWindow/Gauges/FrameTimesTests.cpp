#include "TervaleWindow/Gauges/FrameTimes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace tervale;

namespace {

double bezier(double first, double second, double parameter) {
    const double rest = 1 - parameter;
    return 3 * rest * rest * parameter * first + 3 * rest * parameter * parameter * second +
           parameter * parameter * parameter;
}

/// The curve's height over `time`, found by halving the parameter's interval.
double easedByBisection(double time) {
    double low = 0;
    double high = 1;
    for (int step = 0; step < 60; ++step) {
        const double middle = (low + high) / 2;
        (bezier(0.25, 0.25, middle) < time ? low : high) = middle;
    }
    return bezier(0.1, 1.0, low);
}

/// Of a movement over so many device pixels on a screen of that rate.
std::vector<double> framesOf(double distance, double rate, double firstRefresh = 5) {
    const FrameTimes frames{distance, firstRefresh, 1000 / rate};
    std::vector<double> times;
    double time = frames.after(0);
    while (time < gaugeDuration && times.size() <= 1000) {
        times.push_back(time);
        time = frames.after(time);
    }
    times.push_back(gaugeDuration);
    return times;
}

std::size_t count(double distance, double rate) {
    return framesOf(distance, rate).size();
}

/// The arc of a dial from one end to the other, on a screen of one device pixel each.
constexpr double fullSweep = 391;

} // namespace

TEST(Easing, IsTheCubicBezierCurve) {
    for (int percent = 0; percent <= 100; percent += 5) {
        const double time = percent / 100.0;
        EXPECT_NEAR(eased(time), easedByBisection(time), 1e-9) << time;
    }
    EXPECT_NEAR(eased(0.5), 0.8024, 1e-4);
    EXPECT_EQ(eased(0), 0);
    EXPECT_EQ(eased(1), 1);
    EXPECT_EQ(eased(1.5), 1);
}

TEST(FrameTimes, ComeWithEveryRefreshOfALargeSweep) {
    // 0.6 s have 36 and 72 of them. The curve ends flat: in its last refreshes nothing moves.
    EXPECT_GE(count(fullSweep, 60), 32U);
    EXPECT_LE(count(fullSweep, 60), 36U);
    EXPECT_GE(count(fullSweep, 120), 58U);
    EXPECT_LE(count(fullSweep, 120), 72U);
    const std::vector<double> times = framesOf(fullSweep, 120);
    for (std::size_t i = 1; times[i] < 400; ++i)
        EXPECT_NEAR(times[i] - times[i - 1], 1000.0 / 120, 1e-6);
}

TEST(FrameTimes, AreFewForASmallStep) {
    // A degree of a bar of 240 pixels, and one of a dial's arc.
    EXPECT_LE(count(3, 60), 7U);
    EXPECT_LE(count(1.5, 60), 4U);
    EXPECT_EQ(count(3, 120), count(3, 1000)) << "the screen's rate is nothing to a small step";
}

TEST(FrameTimes, AreOneWhereNothingIsSeenToMove) {
    for (const double distance : {0.0, 0.1, 0.49, std::nan("")})
        EXPECT_EQ(framesOf(distance, 60), std::vector<double>{gaugeDuration}) << distance;
}

TEST(FrameTimes, EachShowSomethingHalfAPixelFurther) {
    for (const double distance : {1.0, 5.0, 40.0, fullSweep, 2 * fullSweep}) {
        for (const double rate : {30.0, 60.0, 59.94, 75.0, 120.0, 144.0}) {
            double place = 0;
            const std::vector<double> times = framesOf(distance, rate);
            for (const double time : times) {
                const double next = distance * eased(time / gaugeDuration);
                // The last one ends the movement, wherever it was.
                if (time < gaugeDuration) {
                    EXPECT_GE(next - place, 0.5) << distance << " at " << rate;
                }
                place = next;
            }
            EXPECT_EQ(place, distance);
        }
    }
}

TEST(FrameTimes, AreNeverCloserThanTwoRefreshes) {
    for (const double rate : {60.0, 120.0}) {
        const std::vector<double> times = framesOf(10 * fullSweep, rate, 3);
        EXPECT_EQ(times.front(), 3);
        for (std::size_t i = 1; i + 1 < times.size(); ++i)
            EXPECT_GE(times[i] - times[i - 1], 1000 / rate - 1e-6);
    }
}

TEST(FrameTimes, FollowALateFrameWithTheNextRefresh) {
    const FrameTimes frames{fullSweep, 5, 10};
    EXPECT_DOUBLE_EQ(frames.after(5), 15);
    EXPECT_DOUBLE_EQ(frames.after(18), 25);
    EXPECT_DOUBLE_EQ(frames.after(24.9), 35) << "in the tenth of a millisecond nothing moves";
    EXPECT_EQ(frames.after(gaugeDuration), gaugeDuration);
}
