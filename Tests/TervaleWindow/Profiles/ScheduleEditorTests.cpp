#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Profiles/SampleProfiles.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"
#include "TervaleWindow/Profiles/ScheduleRow.h"
#include "TervaleWindow/Support/Choosing.h"
#include "TervaleWindow/Support/InLocale.h"
#include "TervaleWindow/Support/Knob.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace tervale {
namespace {

const std::vector<Profile> targets{loadProfile(1, "Quiet"),
                                   loadProfile(2, ""),
                                   {idOf(3), "Night", kind::Schedule{ProfileDefaults::schedule()}}};

class ScheduleEditorTest : public testing::Test {
  protected:
    ScheduleEditorTest() {
        editor.setLocale(QLocale(QLocale::German));
        editor.resize(500, 300);
        editor.show();
        editor.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
        QObject::connect(&editor, &ScheduleEditor::edited, &editor, [this](const WindowEdit& edit) {
            std::vector<Window> windows = editor.windows();
            perform(edit, windows);
            editor.display(windows, targets);
            ++reports;
        });
    }

    void show(const std::vector<Window>& windows) { editor.display(windows, targets); }
    QList<ScheduleRow*> rows() const { return editor.findChildren<ScheduleRow*>(); }
    template <class Control>
    Control* control(int row, const QString& name = {}) const {
        for (Control* found : rows()[row]->findChildren<Control*>()) {
            if (name.isEmpty() || found->accessibleName() == name)
                return found;
        }
        return nullptr;
    }
    PopUpButton* picker(int row) const { return control<PopUpButton>(row); }
    void choose(int row, int entry) const { tervale::choose(*picker(row), entry); }
    /// Types into the hour of a window's start and leaves it at that.
    void typeHour(int row, const QString& digits) const {
        auto* field = control<TimeField>(row, "From");
        field->setFocus();
        field->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClicks(field, digits);
    }
    /// As assistive technology does, which leaves the focus where it is.
    void pressRemove(int row) const {
        const auto before = editor.windows().size();
        QAccessible::queryAccessibleInterface(control<SymbolButton>(row))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(QTest::qWaitFor([&] { return editor.windows().size() < before; }));
    }
    QPushButton* addButton() const {
        for (auto* button : editor.findChildren<QPushButton*>()) {
            if (button->text() == "Add Window")
                return button;
        }
        return nullptr;
    }
    QStringList entries(int row) const {
        QStringList result;
        for (int entry = 0; entry < picker(row)->count(); ++entry)
            result.push_back(picker(row)->itemText(entry));
        return result;
    }

    ScheduleEditor editor;
    int reports = 0;
};

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

TEST_F(ScheduleEditorTest, WritesTimesAsTheUsersLocaleDoes) {
    editor.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    show({{425, 1380, action::Automatic{}}});
    EXPECT_TRUE(control<TimeField>(0, "From")->text().startsWith("7:05"));
    EXPECT_TRUE(control<TimeField>(0, "From")->text().endsWith("AM", Qt::CaseInsensitive));
    EXPECT_TRUE(control<TimeField>(0, "To")->text().startsWith("11:00"));
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

TEST_F(ScheduleEditorTest, RemovesEveryWindowByKeys) {
    show({{0, 60, action::Automatic{}}, {60, 120, action::Automatic{}}});
    control<SymbolButton>(0)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(editor.windows().empty());
    EXPECT_EQ(QApplication::focusWidget(), addButton());
}

TEST_F(ScheduleEditorTest, StoresTypedTimes) {
    show({{0, 60, action::Automatic{}}});
    auto* field = control<TimeField>(0, "From");
    field->setFocus();
    field->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(field, "0705");
    EXPECT_EQ(editor.windows()[0].start, 425);
    EXPECT_EQ(editor.windows()[0].end, 60);
    EXPECT_GE(reports, 1);
}

TEST_F(ScheduleEditorTest, StepsTimesAcrossMidnight) {
    show({{600, 1439, action::Automatic{}}});
    auto* field = control<TimeField>(0, "To");
    field->setFocus();
    field->setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(field, Qt::Key_Up);
    EXPECT_EQ(editor.windows()[0].end, 0);
    EXPECT_EQ(editor.windows()[0].start, 600);
}

TEST_F(ScheduleEditorTest, ListsWhatAWindowMayRun) {
    show({{0, 60, action::Automatic{}}});
    EXPECT_EQ(entries(0), (QStringList{"Automatic", "Fixed speed", "", "Quiet", "Untitled"}));
    EXPECT_EQ(picker(0)->accessibleName().toStdString(), "Run");
}

TEST_F(ScheduleEditorTest, DividesOnlyWhereThereAreProfiles) {
    editor.display({{0, 60, action::Automatic{}}}, {});
    EXPECT_EQ(entries(0), (QStringList{"Automatic", "Fixed speed"}));
}

TEST_F(ScheduleEditorTest, NamesWhatCannotBeRunWhereItIsChosen) {
    show({{0, 60, action::Profile{idOf(3)}}, {60, 120, action::Profile{idOf(9)}}});
    EXPECT_EQ(picker(0)->currentText().toStdString(), "Night");
    EXPECT_EQ(picker(1)->currentText().toStdString(), "Missing profile");
}

TEST_F(ScheduleEditorTest, SwitchesWhatAWindowRuns) {
    show({{0, 60, action::Profile{idOf(1)}}});
    EXPECT_EQ(picker(0)->currentText().toStdString(), "Quiet");
    choose(0, 1);
    EXPECT_EQ(editor.windows()[0].action, Action(action::Fixed{0.5}));
    EXPECT_EQ(control<TabularLabel>(0)->text().toStdString(), "50%");
    choose(0, 4);
    EXPECT_EQ(editor.windows()[0].action, Action(action::Profile{idOf(2)}));
    EXPECT_TRUE(control<FractionSlider>(0)->isHidden());
    choose(0, 0);
    EXPECT_EQ(editor.windows()[0].action, Action(action::Automatic{}));
}

TEST_F(ScheduleEditorTest, KeepsTheSpeedToWholePercent) {
    show({{0, 60, action::Fixed{0.5}}});
    auto* slider = control<FractionSlider>(0);
    // A pixel is less than a percent.
    slider->setFixedWidth(400);
    QCoreApplication::processEvents();
    QTest::mouseClick(slider, Qt::LeftButton, {}, knobAt(*slider, 0.2944));
    EXPECT_NE(slider->fraction(), 0.29);
    EXPECT_NEAR(slider->fraction(), 0.29, 0.005);
    EXPECT_EQ(editor.windows()[0].action, Action(action::Fixed{0.29}));
    EXPECT_EQ(control<TabularLabel>(0)->text().toStdString(), "29%");
}

TEST_F(ScheduleEditorTest, LosesNoPartOfADragThatIsLessThanAPercent) {
    const InLocale leftToRight(QLocale::c());
    show({{0, 60, action::Fixed{0.4}}});
    auto* slider = control<FractionSlider>(0);
    slider->setFocus();
    QTest::keyPress(slider, Qt::Key_Right);
    QTest::keyRelease(slider, Qt::Key_Right);
    EXPECT_EQ(editor.windows()[0].action, Action(action::Fixed{0.41}));
    // From here on a pixel is less than a percent.
    editor.resize(500, 300);
    slider->setFixedWidth(400);
    QCoreApplication::processEvents();
    const QPoint middle = slider->rect().center();
    QTest::mousePress(slider, Qt::LeftButton, {}, middle);
    const double from = slider->fraction();
    for (int step = 1; step <= 3; ++step) {
        const double before = slider->fraction();
        QTest::mouseMove(slider, middle + QPoint(step, 0));
        EXPECT_GT(slider->fraction(), before) << step;
    }
    EXPECT_LT(slider->fraction() - from, 0.01);
    QTest::mouseRelease(slider, Qt::LeftButton, {}, middle + QPoint(3, 0));
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

TEST_F(ScheduleEditorTest, ForgetsAHalfTypedTimeWithItsRow) {
    show({{0, 60, action::Automatic{}}, {720, 780, action::Automatic{}}});
    typeHour(0, "1");
    pressRemove(0);
    EXPECT_EQ(editor.windows(), (std::vector<Window>{{720, 780, action::Automatic{}}}));
    EXPECT_EQ(reports, 1);
}

TEST_F(ScheduleEditorTest, RemovesTheLastRowInTheMiddleOfATime) {
    show({{0, 60, action::Automatic{}}});
    typeHour(0, "1");
    pressRemove(0);
    EXPECT_TRUE(editor.windows().empty());
    EXPECT_EQ(reports, 1);
}

TEST_F(ScheduleEditorTest, IsGivenFewerWindowsInTheMiddleOfATime) {
    show({{0, 60, action::Automatic{}}, {720, 780, action::Automatic{}}});
    typeHour(1, "1");
    show({{0, 60, action::Automatic{}}});
    EXPECT_EQ(rows().size(), 1);
    EXPECT_EQ(editor.windows(), (std::vector<Window>{{0, 60, action::Automatic{}}}));
    EXPECT_EQ(reports, 0);
}

TEST_F(ScheduleEditorTest, KeepsTheSpeedWhenFixedSpeedIsChosenAgain) {
    show({{0, 60, action::Fixed{0.8}}});
    choose(0, 1);
    EXPECT_EQ(editor.windows()[0].action, Action(action::Fixed{0.8}));
    EXPECT_EQ(control<TabularLabel>(0)->text().toStdString(), "80%");
}

TEST_F(ScheduleEditorTest, SpellsMarkupInANameOut) {
    const std::vector<Profile> markup{
        {idOf(1), "<b>a</b> & b", kind::Load{ProfileDefaults::loadCurve()}}};
    editor.display({{0, 60, action::Profile{idOf(1)}}}, markup);
    EXPECT_EQ(picker(0)->toolTip().toStdString(), "<p>&lt;b&gt;a&lt;/b&gt; &amp; b</p>");
    EXPECT_EQ(picker(0)->currentText().toStdString(), "<b>a</b> & b");
}

TEST_F(ScheduleEditorTest, RenamesWhatItOffers) {
    show({{0, 60, action::Profile{idOf(1)}}});
    std::vector<Profile> renamed = targets;
    renamed[0].name = "Silent";
    editor.display({{0, 60, action::Profile{idOf(1)}}}, renamed);
    EXPECT_EQ(entries(0), (QStringList{"Automatic", "Fixed speed", "", "Silent", "Untitled"}));
    EXPECT_EQ(picker(0)->currentText().toStdString(), "Silent");
}

TEST_F(ScheduleEditorTest, TakesTheShownTimeForOneOutsideTheDayOnceItIsConfirmed) {
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

TEST_F(ScheduleEditorTest, TakesTheShownTimeForOneOutsideTheDayOnceItIsTyped) {
    show({{0, 1440, action::Automatic{}}});
    auto* field = control<TimeField>(0, "To");
    field->setFocus();
    field->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(field, "0000");
    EXPECT_EQ(editor.windows()[0].end, 0);
    EXPECT_EQ(field->text().toStdString(), "00:00");
}

TEST_F(ScheduleEditorTest, TakesTheShownSpeedForOneOutOfRangeOnceItIsConfirmed) {
    show({{0, 60, action::Fixed{1.5}}});
    auto* slider = control<FractionSlider>(0);
    EXPECT_EQ(control<TabularLabel>(0)->text().toStdString(), "150%");
    QTest::keyClick(slider, Qt::Key_End);
    EXPECT_EQ(editor.windows()[0].action, Action(action::Fixed{1}));
    EXPECT_EQ(control<TabularLabel>(0)->text().toStdString(), "100%");
    show({{0, 60, action::Fixed{0.333}}});
    reports = 0;
    QTest::mouseClick(slider, Qt::LeftButton, {}, knobAt(*slider, 0.333));
    EXPECT_EQ(reports, 0);
}

} // namespace
} // namespace tervale
