#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Profiles/ScheduleEditorFixture.h"
#include "TervaleWindow/Support/HeardEvents.h"

#include <QLabel>

namespace tervale {
namespace {

class ScheduleEditorTest : public ScheduleEditorFixture {};

TEST_F(ScheduleEditorTest, ShowsARowForEachWindow) {
    show({{1380, 420, action::Automatic{}}, {540, 720, action::Fixed{0.4}}});
    ASSERT_EQ(rows().size(), 2);
    EXPECT_EQ(control<TimeField>(0, "From")->text().toStdString(), "23:00");
    EXPECT_EQ(control<TimeField>(0, "To")->text().toStdString(), "07:00");
    EXPECT_EQ(picker(0)->currentText().toStdString(), "Automatic");
    EXPECT_TRUE(control<FractionSlider>(0)->isHidden());
    EXPECT_EQ(picker(1)->currentText().toStdString(), "Fixed speed");
    EXPECT_FALSE(control<FractionSlider>(1)->isHidden());
    EXPECT_EQ(control<FractionSlider>(1)->fraction(), 0.4);
    EXPECT_EQ(control<TabularLabel>(1)->text().toStdString(), "40%");
    EXPECT_EQ(reports, 0);
}

TEST_F(ScheduleEditorTest, AddsWindowsOneAfterTheOther) {
    show({});
    QTest::mouseClick(addButton(), Qt::LeftButton);
    QTest::mouseClick(addButton(), Qt::LeftButton);
    EXPECT_EQ(editor.windows(), (std::vector<Window>{{540, 600, action::Automatic{}},
                                                     {600, 660, action::Automatic{}}}));
    EXPECT_EQ(rows().size(), 2);
    EXPECT_EQ(reports, 2);
}

TEST_F(ScheduleEditorTest, RemovesTheWindowWhoseButtonIsClicked) {
    show({{0, 60, action::Automatic{}},
          {60, 120, action::Fixed{0.4}},
          {120, 180, action::Automatic{}}});
    ScheduleRow* last = rows()[2];
    QTest::mouseClick(control<SymbolButton>(1), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(editor.windows(),
              (std::vector<Window>{{0, 60, action::Automatic{}}, {120, 180, action::Automatic{}}}));
    ASSERT_EQ(rows().size(), 2);
    EXPECT_EQ(rows()[1], last);
}

TEST_F(ScheduleEditorTest, NamesTheControlsOfEachWindowByItsNumber) {
    show({{0, 60, action::Automatic{}},
          {60, 120, action::Fixed{0.4}},
          {120, 180, action::Automatic{}}});
    const auto names = [this](int row) {
        QStringList found;
        for (const auto* part : rows()[row]->findChildren<QWidget*>()) {
            if (!part->accessibleName().isEmpty())
                found << part->accessibleName();
        }
        found.sort();
        return found.join("; ").toStdString();
    };
    EXPECT_EQ(names(1), "Fan speed, window 2 of 3; From, window 2 of 3; Remove window 2 of 3; "
                        "Run, window 2 of 3; To, window 2 of 3");
    pressRemove(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(rows().size(), 2);
    EXPECT_EQ(names(0), "Fan speed, window 1 of 2; From, window 1 of 2; Remove window 1 of 2; "
                        "Run, window 1 of 2; To, window 1 of 2");
    QTest::mouseClick(addButton(), Qt::LeftButton);
    EXPECT_EQ(control<TimeField>(0, "To")->accessibleName(), "To, window 1 of 3");
}

TEST_F(ScheduleEditorTest, TellsNoNameThatStaysAsItIs) {
    show({{0, 60, action::Fixed{0.4}}, {60, 120, action::Automatic{}}});
    HeardEvents heard;
    show({{0, 60, action::Fixed{0.5}}, {60, 120, action::Automatic{}}});
    const QStringList names = heard.take().filter("name: ").filter("window");
    EXPECT_EQ(names.join("; ").toStdString(), "");
}

TEST_F(ScheduleEditorTest, RemovesEveryWindowByKeys) {
    show({{0, 60, action::Automatic{}}, {60, 120, action::Automatic{}}});
    control<SymbolButton>(0)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(editor.windows().empty());
    EXPECT_EQ(QApplication::focusWidget(), addButton());
}

TEST_F(ScheduleEditorTest, ShowsImpossibleNumbersAndChangesNothing) {
    const std::vector<Window> windows{{-5, 1440, action::Fixed{1e300}}};
    show(windows);
    EXPECT_EQ(editor.windows(), windows);
    EXPECT_EQ(control<TimeField>(0, "From")->text().toStdString(), "23:55");
    EXPECT_EQ(control<TimeField>(0, "To")->text().toStdString(), "00:00");
}

TEST_F(ScheduleEditorTest, LeavesTheFocusWhereItIs) {
    show({{0, 60, action::Automatic{}}});
    auto* field = control<TimeField>(0, "From");
    field->setFocus();
    show({{0, 60, action::Automatic{}}, {60, 120, action::Automatic{}}});
    EXPECT_EQ(QApplication::focusWidget(), field);
}

TEST_F(ScheduleEditorTest, BreaksRowsInTwoWhereTheyDoNotFit) {
    show({{0, 60, action::Fixed{0.5}}});
    const int oneLine = rows()[0]->sizeHint().height();
    editor.resize(editor.minimumSizeHint().width(), 300);
    QCoreApplication::processEvents();
    EXPECT_LE(editor.minimumSizeHint().width(), 298);
    EXPECT_GT(rows()[0]->sizeHint().height(), oneLine);
    editor.resize(500, 300);
    QCoreApplication::processEvents();
    EXPECT_EQ(rows()[0]->sizeHint().height(), oneLine);
}

TEST_F(ScheduleEditorTest, GivesThePickersOfAllRowsOneWidth) {
    show({{1380, 420, action::Automatic{}}, {540, 720, action::Fixed{0.4}}});
    for (const int width : {520, 496, 470, 340}) {
        editor.resize(width, 400);
        QCoreApplication::processEvents();
        const auto pickers = editor.findChildren<PopUpButton*>();
        ASSERT_EQ(pickers.size(), 2);
        EXPECT_EQ(pickers[0]->width(), pickers[1]->width()) << width;
        EXPECT_GE(pickers[0]->width(), pickers[0]->widthFor("Fixed speed")) << width;
    }
}

TEST_F(ScheduleEditorTest, SaysWhatRunsOtherwise) {
    QStringList texts;
    for (const QLabel* label : editor.findChildren<QLabel*>())
        texts.push_back(label->text());
    EXPECT_EQ(texts,
              (QStringList{"Time windows",
                           "Times no window covers run Automatic. A window may cross midnight."}));
}

} // namespace
} // namespace tervale
