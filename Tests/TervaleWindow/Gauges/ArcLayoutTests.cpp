#include "Support/NotANumber.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Gauges/ArcLayout.h"
#include "TervaleWindow/Gauges/GaugeTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace tervale;

namespace {

using tervale::test::notANumber;
const QRectF square(10, 10, 190, 190);

/// On the arc's line; degrees anticlockwise from the right.
QPoint onArc(double degrees) {
    const ArcLayout layout = arcLayout(square);
    const double angle = degrees * std::numbers::pi / 180;
    return (layout.center + layout.radius * QPointF(std::cos(angle), -std::sin(angle))).toPoint();
}

struct Look {
    QPalette palette;
    QImage image;
    Colors colors;

    Look(const QPalette& given, const ArcState& state)
        : palette(given),
          image(210, 210, QImage::Format_RGB32),
          colors(Colors::of(given)) {
        image.fill(colors.card);
        QPainter painter(&image);
        paintArc(painter, arcLayout(square), state, colors);
    }

    QColor at(QPoint place) const { return image.pixelColor(place); }
    QColor track() const { return onto(colors.card, colors.quaternary); }
};

bool isFill(const QColor& color) {
    return color.blue() > 230 && color.red() < 100;
}

} // namespace

TEST(ArcLayout, LiesWithinTheSquareByHalfItsLine) {
    const ArcLayout layout = arcLayout(square);
    EXPECT_EQ(layout.center, square.center());
    EXPECT_EQ(layout.radius + ArcLayout::lineWidth / 2, square.width() / 2);
    // Upright on the line's top.
    EXPECT_EQ(layout.tick.center(), layout.center - QPointF(0, layout.radius));
    EXPECT_EQ(layout.tick.size(), QSizeF(3, 22));
}

TEST(ArcLayout, TakesItsRadiusFromTheWidthAlone) {
    const ArcLayout layout = arcLayout(QRectF(0, 0, 100, 300));
    EXPECT_EQ(layout.radius, 43);
    EXPECT_EQ(layout.center, QPointF(50, 150));
}

TEST(ArcRegion, IsEmptyForAnEqualState) {
    const ArcLayout layout = arcLayout(square);
    EXPECT_TRUE(arcRegion(layout, {0.3, 0.4}, {0.3, 0.4}).isEmpty());
    EXPECT_TRUE(arcRegion(layout, {notANumber, notANumber}, {notANumber, notANumber}).isEmpty());
}

TEST(ArcRegion, CoversNoMoreThanWhatMoved) {
    const ArcLayout layout = arcLayout(square);
    const QRegion region = arcRegion(layout, {0.3, 0.9}, {0.32, 0.9});
    EXPECT_TRUE(region.contains(onArc(225 - 270 * 0.31)));
    EXPECT_LT(region.boundingRect().width(), 40);
    EXPECT_FALSE(region.intersects(QRect(60, 60, 90, 90)));
    const QRegion tickRegion = arcRegion(layout, {0.3, 0.9}, {0.3, 0.1});
    EXPECT_TRUE(tickRegion.contains(onArc(225 - 270 * 0.9)));
    EXPECT_TRUE(tickRegion.contains(onArc(225 - 270 * 0.1)));
    EXPECT_FALSE(tickRegion.contains(onArc(90)));
}

class ArcLook : public testing::TestWithParam<QPalette> {};

TEST_P(ArcLook, HasATrackThatIsOpenAtTheBottom) {
    const Look look(GetParam(), {0, notANumber});
    for (const double angle : {225.0, 180.0, 90.0, 0.0, -45.0})
        EXPECT_TRUE(isClose(look.at(onArc(angle)), look.track())) << angle;
    EXPECT_TRUE(isClose(look.at(onArc(270)), look.colors.card));
    EXPECT_TRUE(isClose(look.at({105, 105}), look.colors.card));
}

TEST_P(ArcLook, IsFilledClockwiseFromTheLowerLeft) {
    const Look look(GetParam(), {0.5, notANumber});
    EXPECT_TRUE(isFill(look.at(onArc(225))));
    EXPECT_TRUE(isFill(look.at(onArc(100))));
    EXPECT_TRUE(isClose(look.at(onArc(80)), look.track()));
}

TEST_P(ArcLook, IsFilledLightBelowAndInTheAccentAbove) {
    const Look look(GetParam(), {1, notANumber});
    EXPECT_TRUE(isClose(look.at(onArc(90)), Theme::accent(), 5));
    // At 1/√2 of the radius below the centre, 167 of 190 from the top.
    EXPECT_TRUE(isClose(look.at(onArc(225)), QColor(73, 139, 243), 5));
    EXPECT_TRUE(isFill(look.at(onArc(-45))));
    EXPECT_TRUE(isClose(look.at(onArc(270)), look.colors.card));
}

TEST_P(ArcLook, HasItsTickOnTheArcsLine) {
    for (const double tick : {0.0, 0.5, 1.0}) {
        const Look look(GetParam(), {0, tick});
        QColor label = look.colors.label;
        label.setAlphaF(0.7f);
        const QColor expected = onto(look.track(), label);
        EXPECT_TRUE(isClose(look.at(onArc(225 - 270 * tick)), expected, 12)) << tick;
    }
}

TEST_P(ArcLook, ShowsNeitherFillNorTickForWhatIsNoNumber) {
    EXPECT_EQ(Look(GetParam(), {notANumber, notANumber}).image,
              Look(GetParam(), {0, notANumber}).image);
}

INSTANTIATE_TEST_SUITE_P(Palettes, ArcLook, testing::Values(lightPalette(), darkPalette()));
