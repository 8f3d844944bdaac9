#include "TervaleWindow/Profiles/ScheduleEditorFixture.h"

namespace tervale {
namespace {

class ScheduleTimes : public ScheduleEditorFixture {};

TEST_F(ScheduleTimes, WritesTimesAsTheUsersLocaleDoes) {
    editor.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    show({{425, 1380, action::Automatic{}}});
    EXPECT_TRUE(control<TimeField>(0, "From")->text().startsWith("7:05"));
    EXPECT_TRUE(control<TimeField>(0, "From")->text().endsWith("AM", Qt::CaseInsensitive));
    EXPECT_TRUE(control<TimeField>(0, "To")->text().startsWith("11:00"));
}

TEST_F(ScheduleTimes, StoresTypedTimes) {
    show({{0, 60, action::Automatic{}}});
    auto* field = control<TimeField>(0, "From");
    field->setFocus();
    field->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(field, "0705");
    EXPECT_EQ(editor.windows()[0].start, 425);
    EXPECT_EQ(editor.windows()[0].end, 60);
    EXPECT_GE(reports, 1);
}

TEST_F(ScheduleTimes, StepsTimesAcrossMidnight) {
    show({{600, 1439, action::Automatic{}}});
    auto* field = control<TimeField>(0, "To");
    field->setFocus();
    field->setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(field, Qt::Key_Up);
    EXPECT_EQ(editor.windows()[0].end, 0);
    EXPECT_EQ(editor.windows()[0].start, 600);
}

TEST_F(ScheduleTimes, ForgetsAHalfTypedTimeWithItsRow) {
    show({{0, 60, action::Automatic{}}, {720, 780, action::Automatic{}}});
    typeHour(0, "1");
    pressRemove(0);
    EXPECT_EQ(editor.windows(), (std::vector<Window>{{720, 780, action::Automatic{}}}));
    EXPECT_EQ(reports, 1);
}

TEST_F(ScheduleTimes, RemovesTheLastRowInTheMiddleOfATime) {
    show({{0, 60, action::Automatic{}}});
    typeHour(0, "1");
    pressRemove(0);
    EXPECT_TRUE(editor.windows().empty());
    EXPECT_EQ(reports, 1);
}

TEST_F(ScheduleTimes, IsGivenFewerWindowsInTheMiddleOfATime) {
    show({{0, 60, action::Automatic{}}, {720, 780, action::Automatic{}}});
    typeHour(1, "1");
    show({{0, 60, action::Automatic{}}});
    EXPECT_EQ(rows().size(), 1);
    EXPECT_EQ(editor.windows(), (std::vector<Window>{{0, 60, action::Automatic{}}}));
    EXPECT_EQ(reports, 0);
}

TEST_F(ScheduleTimes, TakesTheShownTimeForOneOutsideTheDayOnceItIsConfirmed) {
    show({{0, 1440, action::Automatic{}}});
    auto* field = control<TimeField>(0, "To");
    field->setFocus();
    control<TimeField>(0, "From")->setFocus();
    EXPECT_EQ(editor.windows()[0].end, 1440);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(editor.windows()[0].end, 0);
    EXPECT_EQ(reports, 1);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(reports, 1);
}

TEST_F(ScheduleTimes, TakesTheShownTimeForOneOutsideTheDayOnceItIsTyped) {
    show({{0, 1440, action::Automatic{}}});
    auto* field = control<TimeField>(0, "To");
    field->setFocus();
    field->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(field, "0000");
    EXPECT_EQ(editor.windows()[0].end, 0);
    EXPECT_EQ(field->text().toStdString(), "00:00");
}

} // namespace
} // namespace tervale
