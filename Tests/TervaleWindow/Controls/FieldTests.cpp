#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Support/ControlsFixture.h"
#include "TervaleWindow/Support/PaintedTexts.h"

#include <QLineEdit>
#include <QSignalSpy>

#include <utility>

using namespace tervale;

namespace {

struct FieldTest : ControlsInWindow {
    TimeField& showTime(int minute) {
        TimeField& field = show(new TimeField);
        field.setLocale(QLocale(QLocale::German));
        field.setMinuteOfDay(minute);
        field.setFocus();
        return field;
    }
};

} // namespace

TEST_F(FieldTest, ATimeIsShownInTheUsersWay) {
    TimeField& field = showTime(425);
    EXPECT_EQ(field.text(), "07:05");
    field.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(field.text().simplified(), "7:05 AM");
    field.setMinuteOfDay(1380);
    EXPECT_EQ(field.text().simplified(), "11:00 PM");
    field.setLocale(QLocale::c());
    EXPECT_EQ(field.text(), "23:00");
}

TEST_F(FieldTest, ATimeReadsFromItsHoursAlsoWhereTextBeginsOnTheRight) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    TimeField& field = showTime(425);
    EXPECT_EQ(field.text(), "07:05");
    field.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(&field, "10");
    EXPECT_EQ(field.minuteOfDay(), 10 * 60 + 5);
    QTest::keyClick(&field, Qt::Key_Right);
    EXPECT_EQ(field.currentSection(), QDateTimeEdit::MinuteSection);
}

TEST_F(FieldTest, ATimeSetFromOutsideIsNotReported) {
    TimeField& field = showTime(0);
    QSignalSpy changes(&field, &TimeField::minuteOfDayChanged);
    field.setMinuteOfDay(1439);
    EXPECT_EQ(field.minuteOfDay(), 1439);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_DEATH(field.setMinuteOfDay(1440), "minute of the day");
}

TEST_F(FieldTest, ATimeStepsThroughHoursAndMinutesPastMidnight) {
    TimeField& field = showTime(1439);
    QSignalSpy changes(&field, &TimeField::minuteOfDayChanged);
    field.setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.minuteOfDay(), 0);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.minuteOfDay(), 1439);
    field.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.minuteOfDay(), 59);
    EXPECT_EQ(field.currentSection(), QDateTimeEdit::HourSection);
    ASSERT_EQ(changes.count(), 3);
    EXPECT_EQ(changes.at(2).at(0).toInt(), 59);
}

TEST_F(FieldTest, ATypedTimeIsReportedOnceForEachChange) {
    TimeField& field = showTime(540);
    QSignalSpy changes(&field, &TimeField::minuteOfDayChanged);
    field.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(&field, "07");
    field.setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClicks(&field, "05");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(field.minuteOfDay(), 425);
    ASSERT_GE(changes.count(), 1);
    EXPECT_EQ(changes.last().at(0).toInt(), 425);
    for (int index = 1; index < changes.count(); ++index)
        EXPECT_NE(changes.at(index).at(0), changes.at(index - 1).at(0));
}

TEST_F(FieldTest, ATimeLeavesTheWheelToThePane) {
    TimeField& field = showTime(425);
    ASSERT_TRUE(field.hasFocus());
    for (const int delta : {120, -120, -120})
        turnWheel(field, delta);
    turnWheel(*field.findChild<QLineEdit*>(), -120);
    EXPECT_EQ(field.minuteOfDay(), 425);
}

TEST_F(FieldTest, ATimeHasANameAValueAndRoomForItsText) {
    TimeField& field = showTime(425);
    field.setAccessibleName("From");
    EXPECT_EQ(field.size(), field.sizeHint());
    EXPECT_GT(field.findChild<QLineEdit*>()->width(),
              field.fontMetrics().horizontalAdvance(field.text()));
    EXPECT_EQ(accessible(field)->text(QAccessible::Name), "From");
    EXPECT_EQ(accessible(field)->text(QAccessible::Value), "07:05");
}

TEST_F(FieldTest, ASearchIsClearedByEscape) {
    SearchField& field = show(new SearchField("Filter sensors"));
    field.setFocus();
    QSignalSpy changes(&field, &QLineEdit::textChanged);
    QTest::keyClicks(&field, "gpu");
    EXPECT_EQ(field.text(), "gpu");
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(field.text(), "");
    EXPECT_EQ(changes.count(), 4);
    EXPECT_EQ(accessible(field)->text(QAccessible::Name), "Filter sensors");
}

TEST_F(FieldTest, ATimesDigitsAllTakeTheSameWidth) {
    TimeField& field = showTime(11 * 60);
    const auto colon = [&field] {
        for (const PaintedText& text : paintedTexts(field)) {
            if (text.text == ":")
                return text.place.left();
        }
        return -1;
    };
    field.clearFocus();
    const int place = colon();
    ASSERT_GT(place, 0);
    for (const int minute : {11, 71, 4 * 60 + 44, 22 * 60 + 22, 20 * 60 + 1}) {
        field.setMinuteOfDay(minute);
        EXPECT_EQ(colon(), place) << field.text().toStdString();
    }
}

TEST_F(FieldTest, ATimeFitsIntoItsField) {
    TimeField& field = showTime(0);
    for (const int minute : {0, 4 * 60 + 44, 23 * 60 + 59}) {
        field.setMinuteOfDay(minute);
        for (const PaintedText& text : paintedTexts(field))
            EXPECT_TRUE(field.rect().contains(text.place)) << text.text.toStdString();
    }
}

TEST_F(FieldTest, ATimesSectionIsMarkedAfterAClickAsAfterTab) {
    const auto marked = [](TimeField& field) {
        return field.findChild<QLineEdit*>()->selectedText();
    };
    TimeField& field = showTime(425);
    field.clearFocus();
    field.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(marked(field), "07");
    auto* edit = field.findChild<QLineEdit*>();
    const QPoint middle = edit->rect().center();
    for (const auto& [place, section] :
         {std::pair(middle - QPoint(12, 0), "07"), std::pair(middle + QPoint(12, 0), "05")}) {
        field.clearFocus();
        EXPECT_EQ(marked(field), "");
        QTest::mouseClick(edit, Qt::LeftButton, {}, place);
        QCoreApplication::processEvents();
        ASSERT_TRUE(field.hasFocus());
        EXPECT_EQ(marked(field), section);
    }
}

TEST_F(FieldTest, ATimesSectionIsMarkedAfterAClickBesideItsText) {
    TimeField& field = showTime(425);
    field.clearFocus();
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(2, field.height() / 2));
    QCoreApplication::processEvents();
    ASSERT_TRUE(field.hasFocus());
    EXPECT_FALSE(field.findChild<QLineEdit*>()->selectedText().isEmpty());
    const QString before = field.findChild<QLineEdit*>()->selectedText();
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_NE(field.findChild<QLineEdit*>()->selectedText(), before);
}

TEST_F(FieldTest, ATimesMarkedSectionIsPaintedSo) {
    TimeField& field = showTime(425);
    field.setSelectedSection(QDateTimeEdit::HourSection);
    const QImage picture = field.grab().toImage();
    const QColor mark = field.palette().color(QPalette::Highlight);
    const auto hasMark = [&](int left, int right) {
        for (int x = left; x < right; ++x) {
            if (isClose(picture.pixelColor(x, field.height() / 2 - 6), mark, 2))
                return true;
        }
        return false;
    };
    EXPECT_TRUE(hasMark(4, field.width() / 2));
    EXPECT_FALSE(hasMark(field.width() / 2 + 1, field.width() - 4));
}

TEST_F(FieldTest, ATimeTypedAfterAClickReplacesTheSectionThere) {
    TimeField& field = showTime(425);
    auto* edit = field.findChild<QLineEdit*>();
    QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(edit->width() / 2 - 12, edit->height() / 2));
    QCoreApplication::processEvents();
    QTest::keyClicks(&field, "1030");
    EXPECT_EQ(field.minuteOfDay(), 10 * 60 + 30);
}

TEST_F(FieldTest, ATimeTypedInPlaceOfAllOfTheTextBeginsWithTheHours) {
    TimeField& field = showTime(425);
    auto* edit = field.findChild<QLineEdit*>();
    edit->selectAll();
    QTest::keyClicks(&field, "2245");
    EXPECT_EQ(field.minuteOfDay(), 22 * 60 + 45);
}

TEST_F(FieldTest, ATimeTypedBehindThePartOfTheDayBeginsWithTheHoursToo) {
    for (const char* name : {"zh_TW", "ko_KR"}) {
        TimeField& field = showTime(425);
        field.setLocale(QLocale(name));
        field.findChild<QLineEdit*>()->selectAll();
        QTest::keyClicks(&field, "1045");
        EXPECT_EQ(field.minuteOfDay(), 10 * 60 + 45) << name;
    }
}

TEST_F(FieldTest, ATimesSectionsAreChosenByTheArrowKeys) {
    TimeField& field = showTime(425);
    field.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClick(&field, Qt::Key_Up);
    QTest::keyClick(&field, Qt::Key_Right);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.minuteOfDay(), 8 * 60 + 6);
    QTest::keyClick(&field, Qt::Key_Right);
    QTest::keyClick(&field, Qt::Key_Left);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.minuteOfDay(), 7 * 60 + 6);
}
