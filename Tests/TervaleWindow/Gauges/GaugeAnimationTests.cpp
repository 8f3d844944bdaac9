#include "TervaleWindow/Gauges/GaugeAnimation.h"
#include "TervaleWindow/Gauges/GaugeTestSupport.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

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

} // namespace

TEST(Easing, IsTheCubicBezierCurve) {
    for (int percent = 0; percent <= 100; percent += 5) {
        const double time = percent / 100.0;
        EXPECT_NEAR(gaugeEasing().valueForProgress(time), easedByBisection(time), 1e-4) << time;
    }
    EXPECT_NEAR(gaugeEasing().valueForProgress(0.5), 0.8024, 1e-3);
}

TEST(Transition, GoesFromOneEndToTheOther) {
    const Transition transition{2, 6};
    EXPECT_EQ(transition.at(0), 2);
    EXPECT_EQ(transition.at(0.25), 3);
    EXPECT_EQ(transition.at(1), 6);
}

TEST(Transition, TakesOnAtOnceWhatCannotBeApproached) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ((Transition{notANumber, 0.5}.at(0.1)), 0.5);
    EXPECT_TRUE(std::isnan(Transition{0.5, notANumber}.at(0.1)));
}

class GaugeAnimationTest : public testing::Test {
  protected:
    QWidget gauge;
    GaugeAnimation animation{gauge};
    QSignalSpy frames{&animation, &GaugeAnimation::advanced};
};

TEST_F(GaugeAnimationTest, IsAtItsEndWhileAtRest) {
    EXPECT_EQ(animation.progress(), 1);
    EXPECT_EQ(animation.state(), QAbstractAnimation::Stopped);
    EXPECT_EQ(frames.count(), 0);
}

TEST_F(GaugeAnimationTest, TakesSixTenthsOfASecond) {
    showAndSettle(gauge);
    animation.begin();
    EXPECT_EQ(animation.state(), QAbstractAnimation::Running);
    EXPECT_EQ(animation.duration(), 600);
    setAnimationTime(gauge, 300);
    EXPECT_NEAR(animation.progress(), 0.8024, 1e-3);
    setAnimationTime(gauge, 600);
    EXPECT_EQ(animation.progress(), 1);
    EXPECT_EQ(animation.state(), QAbstractAnimation::Stopped);
}

TEST_F(GaugeAnimationTest, PassesOverFramesThatFollowTooSoon) {
    showAndSettle(gauge);
    animation.begin();
    const qsizetype before = frames.count();
    for (int time = 1; time < 600; ++time)
        setAnimationTime(gauge, time);
    EXPECT_EQ(frames.count() - before, 19);
    setAnimationTime(gauge, 600);
    EXPECT_EQ(frames.count() - before, 20);
}

TEST_F(GaugeAnimationTest, EndsAtOnceWhileNobodySeesTheGauge) {
    animation.begin();
    EXPECT_EQ(animation.state(), QAbstractAnimation::Stopped);
    EXPECT_EQ(animation.progress(), 1);
    EXPECT_EQ(frames.count(), 1);
}

TEST_F(GaugeAnimationTest, EndsAtItsNextTickOnceTheGaugeIsHidden) {
    showAndSettle(gauge);
    animation.begin();
    gauge.hide();
    animation.setCurrentTime(100);
    EXPECT_EQ(animation.state(), QAbstractAnimation::Stopped);
    EXPECT_EQ(animation.progress(), 1);
    EXPECT_GE(frames.count(), 1);
}
