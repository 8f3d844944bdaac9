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

TEST(SensorSectionLayout, PutsRowsOfOneHeightBelowTheHeaderAndOneAnother) {
    const SensorSectionLayout seven = layout();
    EXPECT_TRUE(seven.contents.contains(seven.headerLine()));
    EXPECT_GT(seven.row(0).row.top(), seven.headerLine().bottom());
    for (int index = 0; index < 7; ++index) {
        const QRect row = seven.row(index).row;
        EXPECT_EQ(row.height(), SensorSectionLayout::rowHeight);
        EXPECT_EQ(row.left(), seven.contents.left());
        EXPECT_EQ(row.right(), seven.contents.right());
        if (index > 0) {
            EXPECT_EQ(row.top(), seven.row(index - 1).row.bottom() + 1);
        }
    }
}

TEST(SensorSectionLayout, PutsTheNameTheBarAndTheValueBesideOneAnother) {
    const SensorRowLayout row = layout().row(0);
    EXPECT_EQ(row.name.left(), row.row.left());
    EXPECT_EQ(row.value.right(), row.row.right());
    EXPECT_EQ(row.bar.left() - row.name.right(), row.value.left() - row.bar.right());
    EXPECT_GT(row.bar.left(), row.name.right());
    EXPECT_EQ(row.bar.height(), SensorSectionLayout::barHeight);
    for (const QRect& part : {row.name, row.bar, row.value}) {
        // The hairline is the row's own.
        EXPECT_TRUE(row.row.adjusted(0, 1, 0, 0).contains(part));
        EXPECT_NEAR(part.center().y(), row.name.center().y(), 1);
    }
}

TEST(SensorSectionLayout, IsMirroredFromRightToLeft) {
    const SensorRowLayout plain = layout().row(0);
    const SensorRowLayout mirrored = layout(Qt::RightToLeft).row(0);
    const auto mirror = [&plain](QRect part) {
        part.moveLeft(plain.row.left() + plain.row.right() - part.right());
        return part;
    };
    EXPECT_EQ(mirrored.row, plain.row);
    EXPECT_EQ(mirrored.name, mirror(plain.name));
    EXPECT_EQ(mirrored.bar, mirror(plain.bar));
    EXPECT_EQ(mirrored.value, mirror(plain.value));
}

TEST(SensorSectionLayout, LeavesNoBarWhereThereIsNoRoom) {
    const SensorSectionLayout narrow{QRect(0, 0, 200, 57), 1};
    EXPECT_EQ(narrow.row(0).bar.width(), 0);
}

TEST(SensorSectionLayout, FindsTheRowsThatAnAreaTouches) {
    const SensorSectionLayout seven = layout();
    const QRect second = seven.row(1).row;
    const QRect above(0, 0, 800, seven.row(0).row.top());
    EXPECT_EQ(seven.rowsIn(seven.contents), (RowRange{0, 7}));
    EXPECT_EQ(seven.rowsIn(above), (RowRange{0, 0}));
    EXPECT_EQ(seven.rowsIn(above.adjusted(0, 0, 0, 1)), (RowRange{0, 1}));
    EXPECT_EQ(seven.rowsIn(second), (RowRange{1, 2}));
    EXPECT_EQ(seven.rowsIn(second.adjusted(0, -1, 0, 1)), (RowRange{0, 3}));
    EXPECT_EQ(seven.rowsIn(second.translated(0, seven.contents.height())), (RowRange{7, 7}));
    EXPECT_EQ(seven.rowsIn(second.translated(0, -500)), (RowRange{0, 0}));
}

TEST(SensorSectionLayout, HasOneColumnForAllBars) {
    const SensorSectionLayout seven = layout();
    for (int row = 0; row < 7; ++row)
        EXPECT_TRUE(seven.barColumn().contains(seven.row(row).bar)) << row;
    EXPECT_FALSE(seven.barColumn().intersects(seven.row(0).name));
    EXPECT_FALSE(seven.barColumn().intersects(seven.row(0).value));
}
