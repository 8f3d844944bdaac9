#include "TervaleWindow/Style/ButtonPainting.h"
#include "TervaleWindow/Style/MenuPainting.h"
#include "TervaleWindow/Style/ScrollBarPainting.h"
#include "TervaleWindow/Style/SliderPainting.h"

#include <gtest/gtest.h>

using namespace tervale;

TEST(SliderLayout, SpansItsGrooveAndFillsItUpToTheKnob) {
    const SliderLayout layout = sliderLayout(QRectF(0, 0, 226, 26), 0.5, Qt::LeftToRight);
    EXPECT_EQ(layout.knob, QRectF(103, 3, 20, 20));
    EXPECT_EQ(layout.groove, QRectF(3, 11, 220, 4));
    EXPECT_EQ(layout.filled, QRectF(3, 11, 110, 4));
}

TEST(SliderLayout, IsMirroredFromRightToLeft) {
    const SliderLayout layout = sliderLayout(QRectF(0, 0, 226, 26), 0.25, Qt::RightToLeft);
    EXPECT_EQ(layout.knob, QRectF(153, 3, 20, 20));
    EXPECT_EQ(layout.filled, QRectF(163, 11, 60, 4));
}

TEST(SliderFraction, IsTheInverseOfTheLayout) {
    const QRectF bounds(10, 0, 226, 26);
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        for (const double fraction : {0.0, 0.1, 0.4567, 1.0}) {
            const qreal x = sliderLayout(bounds, fraction, direction).knob.center().x();
            EXPECT_NEAR(sliderFraction(bounds, x, direction), fraction, 1e-9);
        }
    }
    EXPECT_EQ(sliderFraction(bounds, -100, Qt::LeftToRight), 0);
    EXPECT_EQ(sliderFraction(bounds, 1000, Qt::LeftToRight), 1);
    EXPECT_EQ(sliderFraction(QRectF(0, 0, 5, 26), 3, Qt::LeftToRight), 0);
}

TEST(PopUpLayout, PutsTheChevronsAtTheTrailingEnd) {
    const PopUpLayout layout = popUpLayout(QRect(0, 0, 130, 26), Qt::LeftToRight);
    EXPECT_EQ(layout.chevrons, QRect(107, 5, 16, 16));
    EXPECT_EQ(layout.text, QRect(11, 0, 86, 26));
    EXPECT_EQ(popUpWidth(layout.text.width()), 130);
    const PopUpLayout mirrored = popUpLayout(QRect(0, 0, 130, 26), Qt::RightToLeft);
    EXPECT_EQ(mirrored.chevrons, QRect(7, 5, 16, 16));
    EXPECT_EQ(mirrored.text, QRect(33, 0, 86, 26));
}

TEST(MenuRowLayout, KeepsColumnsOnlyForWhatTheMenuHas) {
    const QRect row(0, 0, 200, menuRowHeight);
    MenuRow plain;
    EXPECT_EQ(menuRowLayout(row, plain).text, QRect(9, 0, 182, menuRowHeight));
    plain.hasCheckColumn = true;
    plain.hasSubmenu = true;
    const MenuRowLayout layout = menuRowLayout(row, plain);
    EXPECT_EQ(layout.text, QRect(27, 0, 146, menuRowHeight));
    EXPECT_FALSE(layout.text.intersects(layout.check));
    EXPECT_FALSE(layout.text.intersects(layout.arrow));
    EXPECT_EQ(menuRowChrome(plain), 54);
}

TEST(ScrollBarThumb, IsAsLongAsTheShareThatIsSeenAndReachesBothEnds) {
    QStyleOptionSlider option;
    option.rect = QRect(0, 0, 12, 200);
    option.orientation = Qt::Vertical;
    option.minimum = 0;
    option.maximum = 300;
    option.pageStep = 100;
    option.sliderPosition = 0;
    EXPECT_EQ(scrollBarThumb(option), QRect(0, 0, 12, 50));
    option.sliderPosition = 300;
    EXPECT_EQ(scrollBarThumb(option), QRect(0, 150, 12, 50));
    EXPECT_EQ(scrollBarPage(option, QStyle::SC_ScrollBarSubPage), QRect(0, 0, 12, 150));
    EXPECT_TRUE(scrollBarPage(option, QStyle::SC_ScrollBarAddPage).isEmpty());
    option.maximum = 100000;
    EXPECT_EQ(scrollBarThumb(option).height(), 32);
}
