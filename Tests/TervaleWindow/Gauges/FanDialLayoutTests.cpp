#include "TervaleWindow/Gauges/FanDialLayout.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

const QRectF dialSquare(4, 4, 190, 190);

FanDialLayout layoutOfSizes() {
    return fanDialLayout(
        dialSquare,
        {.numberHeight = 48, .unitHeight = 14, .captionHeight = 14, .capsuleTextWidth = 100});
}

} // namespace

TEST(FanDialLayout, StacksSymbolNumberAndUnitInTheMiddle) {
    const FanDialLayout layout = layoutOfSizes();
    EXPECT_EQ(layout.symbol.height(), 20);
    EXPECT_EQ(layout.number.top() - layout.symbol.bottom(), 2);
    EXPECT_EQ(layout.unit.top() - layout.number.bottom(), 2);
    EXPECT_EQ((layout.symbol.top() + layout.unit.bottom()) / 2, dialSquare.center().y());
    for (const QRectF& row : {layout.symbol, layout.number, layout.unit})
        EXPECT_EQ(row.center().x(), dialSquare.center().x());
}

TEST(FanDialLayout, HasTheLimitsJustUnderTheOpenEnds) {
    const FanDialLayout layout = layoutOfSizes();
    EXPECT_EQ(layout.limits.width(), 150);
    EXPECT_EQ(layout.limits.center().x(), dialSquare.center().x());
    EXPECT_EQ(layout.limits.bottom(), dialSquare.bottom() + 4);
}

TEST(FanDialLayout, HasTheCapsuleBelowTheLimitsAndWithinTheMargins) {
    const FanDialLayout layout = layoutOfSizes();
    EXPECT_EQ(layout.capsule.size(), QSizeF(100 + 18, 14 + 6));
    EXPECT_EQ(layout.capsule.center().x(), dialSquare.center().x());
    EXPECT_FALSE(layout.capsule.intersects(layout.limits));
    EXPECT_LT(layout.capsule.top(), dialSquare.bottom() + FanDialLayout::blockMargin);
    EXPECT_LT(layout.capsule.bottom(),
              dialSquare.bottom() + FanDialLayout::blockMargin + FanDialLayout::bottomMargin);
}
