#include "Support/NotANumber.h"
#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/GaugeTestSupport.h"
#include "TervaleWindow/Support/InLocale.h"

#include <QLocale>
#include <QPointer>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace tervale;

namespace {

using tervale::test::notANumber;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr FanDial::Value half{
    .rpm = 3000, .target = 4000, .min = 1000, .max = 5000, .manual = true};

} // namespace

class FanDialTest : public testing::Test {
  protected:
    FanDialTest() { dial.resize(dial.sizeHint()); }

    void showHalf() {
        dial.set(half);
        showAndSettle(dial);
    }

    const InLocale english{QLocale("en_US")};
    FanDial dial;
};

TEST(FanDialValue, PlacesSpeedAndTargetBetweenTheLimits) {
    EXPECT_EQ(half.fill(), 0.5);
    EXPECT_EQ(half.tickFraction(), 0.75);
    const FanDial::Value outside{.rpm = 900, .target = 9000, .min = 1000, .max = 5000};
    EXPECT_EQ(outside.fill(), 0);
    EXPECT_EQ(outside.tickFraction(), 1);
    const FanDial::Value fast{.rpm = 5100, .target = 0, .min = 1000, .max = 5000};
    EXPECT_EQ(fast.fill(), 1);
    EXPECT_EQ(fast.tickFraction(), 0);
}

TEST_F(FanDialTest, WritesWholeNumbersInTheUsersLocale) {
    dial.set({.rpm = 2893.4, .target = 3000, .min = 1200.9, .max = 5777.9});
    EXPECT_EQ(dial.texts().number, "2,893");
    EXPECT_EQ(dial.texts().minimum, "1200");
    EXPECT_EQ(dial.texts().maximum, "5777");
    const InLocale german(QLocale("de_DE"));
    dial.set({.rpm = 2893.6, .target = 3000, .min = 1200, .max = 5777});
    EXPECT_EQ(dial.texts().number, "2.894");
}

TEST_F(FanDialTest, RoundsHalvesToTheEvenNumber) {
    const auto number = [this](double rpm) {
        dial.set({.rpm = rpm, .target = 3000, .min = 1200, .max = 5777});
        return dial.texts().number;
    };
    EXPECT_EQ(number(2891.5), "2,892");
    EXPECT_EQ(number(2892.5), "2,892");
    EXPECT_EQ(number(2892.5000001), "2,893");
}

TEST_F(FanDialTest, SaysWhoControlsTheFan) {
    dial.set(half);
    EXPECT_EQ(dial.texts().capsule, "Set by Tervale");
    FanDial::Value automatic = half;
    automatic.manual = false;
    dial.set(automatic);
    EXPECT_EQ(dial.texts().capsule, "Controlled by macOS");
}

TEST_F(FanDialTest, AnimatesFromWhatItShows) {
    showHalf();
    FanDial::Value faster = half;
    faster.rpm = 4000;
    faster.target = 5000;
    dial.set(faster);
    setAnimationTime(dial, 300);
    const double way = eased(0.5);
    EXPECT_NEAR(dial.arc().shown().fill, 0.5 + 0.25 * way, 1e-9);
    EXPECT_NEAR(dial.arc().shown().tick, 0.75 + 0.25 * way, 1e-9);
    dial.set(half);
    EXPECT_NEAR(dial.arc().shown().fill, 0.5 + 0.25 * way, 1e-9);
    setAnimationTime(dial, 600);
    EXPECT_EQ(dial.arc().shown(), (ArcState{0.5, 0.75}));
    EXPECT_FALSE(dial.arc().isAnimating());
}

TEST_F(FanDialTest, StartsAnAnimationThatPaintsNothingForEqualValues) {
    showHalf();
    const QRegion painted = paintedDuring(dial, [this] {
        dial.set(half);
        EXPECT_TRUE(dial.arc().isAnimating());
        setAnimationTime(dial, 300);
        setAnimationTime(dial, 600);
    });
    EXPECT_TRUE(painted.isEmpty());
    EXPECT_FALSE(dial.arc().isAnimating());
}

TEST_F(FanDialTest, PaintsItsNumberOnlyWhenItReadsDifferently) {
    showHalf();
    const QPoint middle(99, 100);
    FanDial::Value sameText = half;
    sameText.rpm = 3000.3;
    sameText.target = 4100;
    EXPECT_FALSE(paintedDuring(dial, [&] {
                     dial.set(sameText);
                     setAnimationTime(dial, 600);
                 }).contains(middle));
    FanDial::Value newText = half;
    newText.rpm = 3001;
    EXPECT_TRUE(paintedDuring(dial, [&] { dial.set(newText); }).contains(middle));
}

TEST_F(FanDialTest, AnimatesNothingWhileHidden) {
    dial.set(half);
    EXPECT_FALSE(dial.arc().isAnimating());
    EXPECT_EQ(dial.arc().shown(), (ArcState{0.5, 0.75}));
    showAndSettle(dial);
    FanDial::Value full = half;
    full.rpm = 5000;
    dial.set(full);
    EXPECT_TRUE(dial.arc().isAnimating());
    dial.hide();
    EXPECT_FALSE(dial.arc().isAnimating());
    EXPECT_EQ(dial.arc().shown().fill, 1);
}

TEST_F(FanDialTest, NeverAnimatesAResize) {
    showHalf();
    dial.resize(260, dial.height());
    EXPECT_FALSE(dial.arc().isAnimating());
    EXPECT_EQ(dial.arc().geometry().center().x(), dial.rect().center().x());
    EXPECT_EQ(dial.arc().width(), dial.arc().height());
}

TEST_F(FanDialTest, RecolorsAtOnceWhenThePaletteChanges) {
    dial.setPalette(lightPalette());
    showHalf();
    const QPoint track(185, 99);
    const QColor before = imageOf(dial).pixelColor(track);
    const QRegion painted = paintedDuring(dial, [this] { dial.setPalette(darkPalette()); });
    EXPECT_TRUE(painted.contains(track));
    EXPECT_FALSE(dial.arc().isAnimating());
    const Colors dark = Colors::of(darkPalette());
    EXPECT_TRUE(isClose(imageOf(dial).pixelColor(track), onto(dark.window, dark.quaternary)));
    EXPECT_FALSE(isClose(before, imageOf(dial).pixelColor(track)));
}

TEST_F(FanDialTest, DrawsNothingForLimitsWithoutASpan) {
    dial.set({.rpm = 3000, .target = 3000, .min = 3000, .max = 3000});
    showAndSettle(dial);
    EXPECT_TRUE(std::isnan(dial.arc().fill()));
    EXPECT_TRUE(std::isnan(dial.arc().tick()));
    const QImage image = imageOf(dial);
    FanDial empty;
    empty.resize(dial.size());
    empty.set({.rpm = 3000, .target = notANumber, .min = 3000, .max = 3000});
    EXPECT_EQ(image, imageOf(empty));
}

TEST_F(FanDialTest, StopsTheProcessForLimitsThatAreNotFinite) {
    EXPECT_DEATH(dial.set({.rpm = 0, .target = 0, .min = notANumber, .max = 1}),
                 "no 64-bit integer");
    EXPECT_DEATH(dial.set({.rpm = 0, .target = 0, .min = 0, .max = infinity}), "no 64-bit integer");
}

TEST_F(FanDialTest, HoldsNoTimerAtRest) {
    showHalf();
    dial.set(half);
    setAnimationTime(dial, 600);
    const auto animations = dial.findChildren<GaugeAnimation*>();
    ASSERT_EQ(animations.size(), 1);
    EXPECT_FALSE(animations.first()->isRunning());
}

TEST_F(FanDialTest, HasRoomForItsMarginsAndItsTicksOverhang) {
    EXPECT_EQ(dial.sizeHint(), QSize(190 + 8, 4 + 190 + 12 + 22));
    FanDial::Value top = half;
    top.target = 3000;
    dial.set(top);
    const QImage image = imageOf(dial);
    const QColor ground = dial.palette().color(QPalette::Window);
    EXPECT_FALSE(isClose(image.pixelColor(99, 1), ground, 40));
}
