#include "TervaleWindow/Sensors/SensorSectionLayout.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

SensorSectionLayout layout(Qt::LayoutDirection direction = Qt::LeftToRight) {
    return {QRect(19, 13, 700, SensorSectionLayout::heightFor(7)), 7, direction};
}

} // namespace

TEST(SensorSectionLayout, IsAsHighAsItsHeaderAndItsRows) {
    EXPECT_EQ(SensorSectionLayout::heightFor(0), 27);
    EXPECT_EQ(SensorSectionLayout::heightFor(7), 27 + 7 * 30);
    EXPECT_EQ(layout().row(6).row.bottom(), layout().contents.bottom());
}

TEST(SensorSectionLayout, PutsRowsOfThirtyPixelsBelowOneAnother) {
    EXPECT_EQ(layout().headerLine(), QRect(19, 15, 700, 18));
    EXPECT_EQ(layout().row(0).row, QRect(19, 40, 700, 30));
    EXPECT_EQ(layout().row(1).row, QRect(19, 70, 700, 30));
}

TEST(SensorSectionLayout, PutsTheNameTheBarAndTheValueBesideOneAnother) {
    const SensorRowLayout row = layout().row(0);
    EXPECT_EQ(row.name, QRect(19, 41, 170, 29));
    EXPECT_EQ(row.value, QRect(19 + 700 - 64, 41, 64, 29));
    EXPECT_EQ(row.bar, QRect(19 + 170 + 14, 52, 700 - 170 - 64 - 28, 6));
}

TEST(SensorSectionLayout, IsMirroredFromRightToLeft) {
    const SensorRowLayout row = layout(Qt::RightToLeft).row(0);
    EXPECT_EQ(row.value, QRect(19, 41, 64, 29));
    EXPECT_EQ(row.bar, QRect(19 + 64 + 14, 52, 700 - 170 - 64 - 28, 6));
    EXPECT_EQ(row.name, QRect(19 + 700 - 170, 41, 170, 29));
}

TEST(SensorSectionLayout, LeavesNoBarWhereThereIsNoRoom) {
    const SensorSectionLayout narrow{QRect(0, 0, 200, 57), 1};
    EXPECT_EQ(narrow.row(0).bar.width(), 0);
}

TEST(SensorSectionLayout, FindsTheRowsThatAnAreaTouches) {
    const SensorSectionLayout seven = layout();
    EXPECT_EQ(seven.rowsIn(seven.contents), (RowRange{0, 7}));
    EXPECT_EQ(seven.rowsIn(QRect(0, 0, 800, 40)), (RowRange{0, 0}));
    EXPECT_EQ(seven.rowsIn(QRect(0, 0, 800, 41)), (RowRange{0, 1}));
    EXPECT_EQ(seven.rowsIn(QRect(0, 70, 800, 30)), (RowRange{1, 2}));
    EXPECT_EQ(seven.rowsIn(QRect(0, 69, 800, 32)), (RowRange{0, 3}));
    EXPECT_EQ(seven.rowsIn(QRect(0, 250, 800, 500)), (RowRange{7, 7}));
    EXPECT_EQ(seven.rowsIn(QRect(0, -500, 800, 100)), (RowRange{0, 0}));
}

TEST(SensorSectionLayout, HasOneColumnForAllBars) {
    const SensorSectionLayout seven = layout();
    for (int row = 0; row < 7; ++row)
        EXPECT_TRUE(seven.barColumn().contains(seven.row(row).bar)) << row;
    EXPECT_FALSE(seven.barColumn().intersects(seven.row(0).name));
    EXPECT_FALSE(seven.barColumn().intersects(seven.row(0).value));
}
