#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Gauges/BarLayerView.h"
#include "TervaleWindow/Gauges/GaugeTestSupport.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tervale;

class BarLayerViewTest : public testing::Test {
  protected:
    BarLayerViewTest() { bar.resize(400, 8); }

    BarLayerView bar;
};

TEST_F(BarLayerViewTest, ShowsANewFractionAtOnceWhileHidden) {
    bar.setFraction(0.5);
    EXPECT_FALSE(bar.isAnimating());
    showAndSettle(bar);
    EXPECT_EQ(bar.shownLength(), 200);
}

TEST_F(BarLayerViewTest, AnimatesANewFractionFromWhatItShows) {
    showAndSettle(bar);
    bar.setFraction(0.5);
    EXPECT_TRUE(bar.isAnimating());
    setAnimationTime(bar, 300);
    const double halfway = 8 + (200 - 8) * gaugeEasing().valueForProgress(0.5);
    EXPECT_NEAR(bar.shownLength(), halfway, 1e-9);
    bar.setFraction(0);
    EXPECT_NEAR(bar.shownLength(), halfway, 1e-9);
    setAnimationTime(bar, 600);
    EXPECT_EQ(bar.shownLength(), 8);
    EXPECT_FALSE(bar.isAnimating());
}

TEST_F(BarLayerViewTest, PassesOverAnEqualFraction) {
    bar.setFraction(0.5);
    showAndSettle(bar);
    const QRegion painted = paintedDuring(bar, [this] { bar.setFraction(0.5); });
    EXPECT_FALSE(bar.isAnimating());
    EXPECT_TRUE(painted.isEmpty());
}

TEST_F(BarLayerViewTest, PaintsOnlyWhatMoved) {
    bar.setFraction(0.5);
    showAndSettle(bar);
    const QRegion painted = paintedDuring(bar, [this] {
        bar.setFraction(0.6);
        setAnimationTime(bar, 600);
    });
    EXPECT_TRUE(painted.contains(QPoint(220, 4)));
    EXPECT_FALSE(painted.contains(QPoint(180, 4)));
    EXPECT_FALSE(painted.contains(QPoint(260, 4)));
}

TEST_F(BarLayerViewTest, NeverAnimatesAResize) {
    bar.setFraction(0.5);
    showAndSettle(bar);
    bar.resize(600, 8);
    EXPECT_FALSE(bar.isAnimating());
    EXPECT_EQ(bar.shownLength(), 300);
    bar.setFraction(1);
    bar.resize(500, 8);
    EXPECT_FALSE(bar.isAnimating());
    EXPECT_EQ(bar.shownLength(), 500);
}

TEST_F(BarLayerViewTest, EndsItsAnimationWhenItIsHidden) {
    showAndSettle(bar);
    bar.setFraction(1);
    bar.hide();
    EXPECT_FALSE(bar.isAnimating());
    EXPECT_EQ(bar.shownLength(), 400);
}

TEST_F(BarLayerViewTest, SurvivesWhatIsNoNumber) {
    showAndSettle(bar);
    bar.setFraction(std::numeric_limits<double>::quiet_NaN());
    setAnimationTime(bar, 600);
    EXPECT_EQ(bar.shownLength(), 8);
    EXPECT_FALSE(imageOf(bar).isNull());
}

class BarLook : public testing::TestWithParam<QPalette> {
  protected:
    QImage painted(double lit) {
        QImage image(400, 8, QImage::Format_RGB32);
        image.fill(colors.card);
        QPainter painter(&image);
        paintBar(painter, image.rect(), lit, colors);
        return image;
    }

    Colors colors = Colors::of(GetParam());
    QColor track = blended(colors.card, colors.quaternary);
};

TEST_P(BarLook, ShowsARoundDotAtTheColdEndWhenEmpty) {
    const QImage image = painted(8);
    EXPECT_TRUE(near(image.pixelColor(4, 4), Theme::thermal(20)));
    EXPECT_TRUE(near(image.pixelColor(0, 0), colors.card, 12));
    EXPECT_TRUE(near(image.pixelColor(7, 0), track, 25));
    EXPECT_TRUE(near(image.pixelColor(9, 4), track));
}

TEST_P(BarLook, IsLitWithTheRampOfTheWholeBar) {
    const QImage image = painted(200);
    EXPECT_TRUE(near(image.pixelColor(150, 4), Theme::thermal(50)));
    EXPECT_TRUE(near(image.pixelColor(190, 4), Theme::thermal(58)));
    EXPECT_TRUE(near(image.pixelColor(203, 4), track));
}

TEST_P(BarLook, IsLitToTheEndWhenFull) {
    const QImage image = painted(400);
    EXPECT_TRUE(near(image.pixelColor(395, 4), Theme::thermal(99)));
    EXPECT_TRUE(near(image.pixelColor(399, 0), colors.card, 12));
}

INSTANTIATE_TEST_SUITE_P(Palettes, BarLook, testing::Values(lightPalette(), darkPalette()));
