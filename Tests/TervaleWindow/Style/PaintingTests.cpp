#include "TervaleWindow/Style/ButtonPainting.h"
#include "TervaleWindow/Style/MenuPainting.h"
#include "TervaleWindow/Style/ScrollBarPainting.h"
#include "TervaleWindow/Style/SliderPainting.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

QRect partAt(double fraction, QStyle::SubControl part, Qt::LayoutDirection direction) {
    return sliderPart(sliderLayout(QRectF(0, 0, 226, 26), fraction, direction), part);
}

} // namespace

TEST(SliderLayout, FillsItsGrooveUpToTheMiddleOfTheKnob) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        for (const double fraction : {0.0, 0.25, 1.0}) {
            const SliderLayout layout = sliderLayout(QRectF(0, 0, 226, 26), fraction, direction);
            const bool mirrored = direction == Qt::RightToLeft;
            EXPECT_EQ(mirrored ? layout.filled.left() : layout.filled.right(),
                      layout.knob.center().x());
            EXPECT_EQ(mirrored ? layout.filled.right() : layout.filled.left(),
                      mirrored ? layout.groove.right() : layout.groove.left());
            EXPECT_EQ(layout.groove.center().y(), layout.knob.center().y());
        }
    }
}

TEST(SliderLayout, IsTakenHoldOfWhereItIsDrawn) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        const QRect groove = partAt(0.5, QStyle::SC_SliderGroove, direction);
        const QRect first = partAt(0, QStyle::SC_SliderHandle, direction);
        const QRect last = partAt(1, QStyle::SC_SliderHandle, direction);
        EXPECT_EQ(first.united(last), groove);
        EXPECT_EQ(first.size(), last.size());
        EXPECT_EQ(partAt(0.4567, QStyle::SC_SliderHandle, direction).size(), first.size());
    }
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
