#include "TervaleWindow/Gauges/FanDialLayout.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

const QRectF square(4, 4, 190, 190);

FanDialLayout layoutOfSizes() {
    return fanDialLayout(
        square,
        {.numberHeight = 48, .unitHeight = 14, .captionHeight = 14, .capsuleTextWidth = 100});
}

} // namespace

TEST(FanDialLayout, StacksSymbolNumberAndUnitInTheMiddle) {
    const FanDialLayout layout = layoutOfSizes();
    EXPECT_EQ(layout.symbol.height(), 20);
    EXPECT_EQ(layout.number.top() - layout.symbol.bottom(), 2);
    EXPECT_EQ(layout.unit.top() - layout.number.bottom(), 2);
    EXPECT_EQ((layout.symbol.top() + layout.unit.bottom()) / 2, square.center().y());
    for (const QRectF& row : {layout.symbol, layout.number, layout.unit})
        EXPECT_EQ(row.center().x(), square.center().x());
}

TEST(FanDialLayout, HasTheLimitsJustUnderTheOpenEnds) {
    const FanDialLayout layout = layoutOfSizes();
    EXPECT_EQ(layout.limits.width(), 150);
    EXPECT_EQ(layout.limits.center().x(), square.center().x());
    EXPECT_EQ(layout.limits.bottom(), square.bottom() + 4);
}

TEST(FanDialLayout, HasTheCapsuleBelowTheLimitsAndWithinTheMargins) {
    const FanDialLayout layout = layoutOfSizes();
    EXPECT_EQ(layout.capsule.size(), QSizeF(100 + 18, 14 + 6));
    EXPECT_EQ(layout.capsule.center().x(), square.center().x());
    EXPECT_FALSE(layout.capsule.intersects(layout.limits));
    EXPECT_LT(layout.capsule.top(), square.bottom() + FanDialLayout::blockMargin);
    EXPECT_LT(layout.capsule.bottom(),
              square.bottom() + FanDialLayout::blockMargin + FanDialLayout::bottomMargin);
}
