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
    const QRect box(10, 20, 130, buttonHeight);
    const PopUpLayout layout = popUpLayout(box, Qt::LeftToRight);
    EXPECT_TRUE(box.contains(layout.text));
    EXPECT_TRUE(box.contains(layout.chevrons));
    EXPECT_LT(layout.text.right(), layout.chevrons.left());
    EXPECT_EQ(layout.chevrons.width(), layout.chevrons.height());
    EXPECT_EQ(layout.chevrons.center().y(), box.center().y());
    // As far from its end as from its edges.
    EXPECT_NEAR(box.right() - layout.chevrons.right(), layout.chevrons.top() - box.top(), 2);
    EXPECT_EQ(popUpWidth(layout.text.width()), box.width());
    const PopUpLayout mirrored = popUpLayout(box, Qt::RightToLeft);
    EXPECT_EQ(mirrored.chevrons, QStyle::visualRect(Qt::RightToLeft, box, layout.chevrons));
    EXPECT_EQ(mirrored.text, QStyle::visualRect(Qt::RightToLeft, box, layout.text));
}

TEST(MenuRowLayout, KeepsColumnsOnlyForWhatTheMenuHas) {
    const QRect row(0, 0, 200, menuRowHeight);
    MenuRow content;
    const QRect text = menuRowLayout(row, content).text;
    EXPECT_GT(text.left(), row.left());
    EXPECT_EQ(text.left() - row.left(), row.right() - text.right());
    EXPECT_EQ(text.height(), row.height());
    content.hasCheckColumn = true;
    content.hasSubmenu = true;
    const MenuRowLayout columns = menuRowLayout(row, content);
    EXPECT_GT(columns.text.left(), text.left());
    EXPECT_LT(columns.text.right(), text.right());
    for (const QRect& column : {columns.check, columns.arrow}) {
        EXPECT_TRUE(row.contains(column));
        EXPECT_FALSE(columns.text.intersects(column));
    }
    EXPECT_LT(columns.check.right(), columns.arrow.left());
    EXPECT_EQ(menuRowChrome(content), row.width() - columns.text.width());
}

TEST(ScrollBarThumb, IsAsLongAsTheShareThatIsSeenAndReachesBothEnds) {
    QStyleOptionSlider option;
    const QRect bar(0, 0, 12, 200);
    option.rect = bar;
    option.orientation = Qt::Vertical;
    option.minimum = 0;
    option.maximum = 300;
    option.pageStep = 100;
    option.sliderPosition = 0;
    const QRect first = scrollBarThumb(option);
    EXPECT_EQ(first.height() * (option.maximum + option.pageStep), bar.height() * option.pageStep);
    EXPECT_EQ(first.width(), bar.width());
    EXPECT_EQ(first.top(), bar.top());
    option.sliderPosition = option.maximum;
    const QRect last = scrollBarThumb(option);
    EXPECT_EQ(last.size(), first.size());
    EXPECT_EQ(last.bottom(), bar.bottom());
    // What is above the thumb turns a page back.
    const QRect before = scrollBarPage(option, QStyle::SC_ScrollBarSubPage);
    EXPECT_EQ(before.united(last), bar);
    EXPECT_FALSE(before.intersects(last));
    EXPECT_TRUE(scrollBarPage(option, QStyle::SC_ScrollBarAddPage).isEmpty());
}

TEST(ScrollBarThumb, StaysLongEnoughToTakeHoldOf) {
    QStyleOptionSlider option;
    option.rect = QRect(0, 0, 12, 200);
    option.orientation = Qt::Vertical;
    option.pageStep = 100;
    option.maximum = 100'000;
    const int least = scrollBarThumb(option).height();
    EXPECT_GE(least, 2 * option.rect.width());
    option.maximum = 1'000'000;
    EXPECT_EQ(scrollBarThumb(option).height(), least);
}
