#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Gauges/BarLayerView.h"
#include "TervaleWindow/Gauges/GaugeMath.h"
#include "TervaleWindow/Gauges/GaugeTestSupport.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tervale;

class BarLayerViewTest : public testing::Test {
  protected:
    BarLayerViewTest() { bar.resize(400, 8); }

    double lengthOf(double fraction) const { return fraction * bar.width(); }
    /// The least that is lit.
    double dot() const { return bar.height(); }
    /// On the line through the middle of the bar.
    QPoint at(double fraction) const {
        return {static_cast<int>(lengthOf(fraction)), bar.height() / 2};
    }

    BarLayerView bar;
};

TEST_F(BarLayerViewTest, ShowsANewFractionAtOnceWhileHidden) {
    bar.setFraction(0.5);
    EXPECT_FALSE(bar.isAnimating());
    showAndSettle(bar);
    EXPECT_EQ(bar.shownLength(), lengthOf(0.5));
}

TEST_F(BarLayerViewTest, AnimatesANewFractionFromWhatItShows) {
    showAndSettle(bar);
    bar.setFraction(0.5);
    EXPECT_TRUE(bar.isAnimating());
    setAnimationTime(bar, 300);
    const double halfway = dot() + (lengthOf(0.5) - dot()) * eased(0.5);
    EXPECT_NEAR(bar.shownLength(), halfway, 1e-9);
    bar.setFraction(0);
    EXPECT_NEAR(bar.shownLength(), halfway, 1e-9);
    setAnimationTime(bar, 600);
    EXPECT_EQ(bar.shownLength(), dot());
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
    EXPECT_TRUE(painted.contains(at(0.55)));
    EXPECT_FALSE(painted.contains(at(0.45)));
    EXPECT_FALSE(painted.contains(at(0.65)));
}

TEST_F(BarLayerViewTest, NeverAnimatesAResize) {
    bar.setFraction(0.5);
    showAndSettle(bar);
    bar.resize(600, 8);
    EXPECT_FALSE(bar.isAnimating());
    EXPECT_EQ(bar.shownLength(), lengthOf(0.5));
    bar.setFraction(1);
    bar.resize(500, 8);
    EXPECT_FALSE(bar.isAnimating());
    EXPECT_EQ(bar.shownLength(), lengthOf(1));
}

TEST_F(BarLayerViewTest, EndsItsAnimationWhenItIsHidden) {
    showAndSettle(bar);
    bar.setFraction(1);
    bar.hide();
    EXPECT_FALSE(bar.isAnimating());
    EXPECT_EQ(bar.shownLength(), lengthOf(1));
}

TEST_F(BarLayerViewTest, SurvivesWhatIsNoNumber) {
    showAndSettle(bar);
    bar.setFraction(std::numeric_limits<double>::quiet_NaN());
    setAnimationTime(bar, 600);
    EXPECT_EQ(bar.shownLength(), dot());
    EXPECT_FALSE(imageOf(bar).isNull());
}

class BarLook : public testing::TestWithParam<QPalette> {
  protected:
    static constexpr int width = 400;
    static constexpr int height = 8;

    QImage painted(double lit) const {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(colors.card);
        QPainter painter(&image);
        paintBar(painter, image.rect(), lit, colors);
        return image;
    }
    /// In the middle of the bar's height.
    static QColor at(const QImage& image, int x) { return image.pixelColor(x, height / 2); }
    static QColor corner(const QImage& image, int x) { return image.pixelColor(x, 0); }
    /// What the ramp over the whole bar is at a place.
    static QColor ramp(int x) {
        const ClosedRange scale = thermalBarRange;
        return Theme::thermal(scale.lower + scale.span() * x / width);
    }

    Colors colors = Colors::of(GetParam());
    QColor track = onto(colors.card, colors.quaternary);
};

TEST_P(BarLook, ShowsARoundDotAtTheColdEndWhenEmpty) {
    const QImage image = painted(height);
    EXPECT_TRUE(isClose(at(image, height / 2), ramp(0)));
    EXPECT_TRUE(isClose(corner(image, 0), colors.card, 12));
    EXPECT_TRUE(isClose(corner(image, height - 1), track, 25));
    EXPECT_TRUE(isClose(at(image, height + 1), track));
}

TEST_P(BarLook, IsLitWithTheRampOfTheWholeBar) {
    const int lit = width / 2;
    const QImage image = painted(lit);
    EXPECT_TRUE(isClose(at(image, lit - 50), ramp(lit - 50)));
    EXPECT_TRUE(isClose(at(image, lit - 10), ramp(lit - 10)));
    EXPECT_TRUE(isClose(at(image, lit + 3), track));
}

TEST_P(BarLook, IsLitToTheEndWhenFull) {
    const QImage image = painted(width);
    EXPECT_TRUE(isClose(at(image, width - 5), ramp(width - 5)));
    EXPECT_TRUE(isClose(corner(image, width - 1), colors.card, 12));
}

INSTANTIATE_TEST_SUITE_P(Palettes, BarLook, testing::Values(lightPalette(), darkPalette()));
