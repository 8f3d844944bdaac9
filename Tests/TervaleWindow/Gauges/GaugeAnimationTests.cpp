#include "TervaleWindow/Appearance/Motion.h"
#include "TervaleWindow/Gauges/GaugeAnimation.h"
#include "TervaleWindow/Gauges/GaugeTestSupport.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace tervale;

TEST(Transition, GoesFromOneEndToTheOther) {
    const Transition transition{2, 6};
    EXPECT_EQ(transition.at(0), 2);
    EXPECT_EQ(transition.at(0.25), 3);
    EXPECT_EQ(transition.at(1), 6);
    EXPECT_EQ(transition.distance(), 4);
}

TEST(Transition, TakesOnAtOnceWhatCannotBeApproached) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ((Transition{notANumber, 0.5}.at(0.1)), 0.5);
    EXPECT_TRUE(std::isnan(Transition{0.5, notANumber}.at(0.1)));
    EXPECT_EQ((Transition{0.5, notANumber}.distance()), 0);
}

class GaugeAnimationTest : public testing::Test {
  protected:
    ~GaugeAnimationTest() override { askForReducedMotion(nullptr); }

    /// Lets each frame come when it is due.
    qsizetype framesOfAMovement(double distance) {
        const qsizetype before = frames.count();
        animation.begin(distance);
        while (animation.isRunning())
            animation.advanceTo(animation.nextFrame());
        return frames.count() - before;
    }

    static constexpr double far = 400;
    QWidget gauge;
    GaugeAnimation animation{gauge};
    QSignalSpy frames{&animation, &GaugeAnimation::advanced};
};

TEST_F(GaugeAnimationTest, IsAtItsEndWhileAtRest) {
    EXPECT_EQ(animation.progress(), 1);
    EXPECT_FALSE(animation.isRunning());
    EXPECT_EQ(frames.count(), 0);
}

TEST_F(GaugeAnimationTest, TakesSixTenthsOfASecond) {
    showAndSettle(gauge);
    animation.begin(far);
    EXPECT_TRUE(animation.isRunning());
    EXPECT_EQ(animation.progress(), 0);
    animation.advanceTo(300);
    EXPECT_NEAR(animation.progress(), 0.8024, 1e-3);
    animation.advanceTo(599);
    EXPECT_TRUE(animation.isRunning());
    animation.advanceTo(600);
    EXPECT_EQ(animation.progress(), 1);
    EXPECT_FALSE(animation.isRunning());
}

TEST_F(GaugeAnimationTest, EndsByItself) {
    showAndSettle(gauge);
    animation.begin(far);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !animation.isRunning(); }));
    EXPECT_GT(frames.count(), 1);
}

TEST_F(GaugeAnimationTest, DrawsAsManyFramesAsShowSomething) {
    showAndSettle(gauge);
    // The screen of these tests has 60 refreshes a second.
    EXPECT_GE(framesOfAMovement(far), 30);
    EXPECT_LE(framesOfAMovement(far), 37);
    EXPECT_LE(framesOfAMovement(3), 7);
    EXPECT_EQ(framesOfAMovement(0.2), 1);
    EXPECT_EQ(framesOfAMovement(0), 1);
}

TEST_F(GaugeAnimationTest, NeverGoesBack) {
    showAndSettle(gauge);
    animation.begin(far);
    animation.advanceTo(300);
    const double there = animation.progress();
    animation.advanceTo(200);
    EXPECT_EQ(animation.progress(), there);
    EXPECT_EQ(frames.count(), 1);
}

TEST_F(GaugeAnimationTest, EndsAtOnceWhileNobodySeesTheGauge) {
    animation.begin(far);
    EXPECT_FALSE(animation.isRunning());
    EXPECT_EQ(animation.progress(), 1);
    EXPECT_EQ(frames.count(), 1);
}

TEST_F(GaugeAnimationTest, EndsAtItsNextFrameOnceTheGaugeIsHidden) {
    showAndSettle(gauge);
    animation.begin(far);
    gauge.hide();
    animation.advanceTo(100);
    EXPECT_FALSE(animation.isRunning());
    EXPECT_EQ(animation.progress(), 1);
    EXPECT_EQ(frames.count(), 1);
}

TEST_F(GaugeAnimationTest, IsSimplyThereForWhoWantsLessMotion) {
    showAndSettle(gauge);
    bool wanted = true;
    askForReducedMotion([&] { return wanted; });
    animation.begin(far);
    EXPECT_FALSE(animation.isRunning());
    EXPECT_EQ(animation.progress(), 1);
    EXPECT_EQ(frames.count(), 1);
    wanted = false;
    animation.begin(far);
    EXPECT_TRUE(animation.isRunning());
}
