#include "TervaleWindow/Profiles/ProfilesListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace tervale {
namespace {

ProfilesListModel::Row row(std::uint8_t number, const QString& name, bool marked = false) {
    ProfilesListModel::Row made{{}, name, marked};
    made.id.bytes.back() = number;
    return made;
}

class ProfilesListModelTest : public testing::Test {
  protected:
    ProfilesListModelTest() {
        model.setRows(start);
        inserted.clear();
    }

    const std::vector<ProfilesListModel::Row> start{row(1, "One"), row(2, "Two"), row(3, "Three")};
    ProfilesListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy changed{&model, &QAbstractItemModel::dataChanged};
};

TEST_F(ProfilesListModelTest, TellsNothingOfEqualRows) {
    model.setRows(start);
    EXPECT_EQ(inserted.count() + removed.count() + changed.count(), 0);
}

TEST_F(ProfilesListModelTest, TellsOfOneChangedRow) {
    model.setRows({start[0], row(2, "Zwei", true), start[2]});
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(model.index(1).data().toString().toStdString(), "Zwei");
    EXPECT_TRUE(model.index(1).data(ProfilesListModel::markedRole).toBool());
    EXPECT_EQ(model.index(1).data(Qt::AccessibleTextRole).toString().toStdString(),
              "Zwei, has problems");
    EXPECT_EQ(inserted.count() + removed.count(), 0);
}

TEST_F(ProfilesListModelTest, TellsOfARemovedRow) {
    model.setRows({start[0], start[2]});
    ASSERT_EQ(removed.count(), 1);
    EXPECT_EQ(removed[0][1].toInt(), 1);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(model.rows(), (std::vector<ProfilesListModel::Row>{start[0], start[2]}));
}

TEST_F(ProfilesListModelTest, TellsOfAnAppendedRow) {
    model.setRows({start[0], start[1], start[2], row(4, "Four")});
    ASSERT_EQ(inserted.count(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 3);
    EXPECT_EQ(model.rowCount(), 4);
}

TEST_F(ProfilesListModelTest, TakesAnyOtherList) {
    const std::vector<ProfilesListModel::Row> other{row(7, "Seven"), start[1], row(8, "Eight")};
    model.setRows(other);
    EXPECT_EQ(model.rows(), other);
    model.setRows({});
    EXPECT_EQ(model.rowCount(), 0);
    model.setRows({start[0], start[0]});
    model.setRows({start[0]});
    EXPECT_EQ(model.rowCount(), 1);
}

} // namespace
} // namespace tervale
