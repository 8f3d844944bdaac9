#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Profiles/ScheduleEditorFixture.h"
#include "TervaleWindow/Support/InLocale.h"
#include "TervaleWindow/Support/Knob.h"

namespace tervale {
namespace {

class ScheduleActions : public ScheduleEditorFixture {};

TEST_F(ScheduleActions, ListsWhatAWindowMayRun) {
    show({{0, 60, action::Automatic{}}});
    EXPECT_EQ(entries(0), (QStringList{"Automatic", "Fixed speed", "", "Quiet", "Untitled"}));
    EXPECT_EQ(picker(0)->accessibleName().toStdString(), "Run, window 1 of 1");
}

TEST_F(ScheduleActions, DividesOnlyWhereThereAreProfiles) {
    editor.display({{0, 60, action::Automatic{}}}, {});
    EXPECT_EQ(entries(0), (QStringList{"Automatic", "Fixed speed"}));
}

TEST_F(ScheduleActions, NamesWhatCannotBeRunWhereItIsChosen) {
    show({{0, 60, action::Profile{idOf(3)}}, {60, 120, action::Profile{idOf(9)}}});
    EXPECT_EQ(picker(0)->currentText().toStdString(), "Night");
    EXPECT_EQ(picker(1)->currentText().toStdString(), "Missing profile");
}

TEST_F(ScheduleActions, SwitchesWhatAWindowRuns) {
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

TEST_F(ScheduleActions, KeepsTheSpeedToWholePercent) {
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

TEST_F(ScheduleActions, LosesNoPartOfADragThatIsLessThanAPercent) {
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

TEST_F(ScheduleActions, KeepsTheSpeedWhenFixedSpeedIsChosenAgain) {
    show({{0, 60, action::Fixed{0.8}}});
    choose(0, 1);
    EXPECT_EQ(editor.windows()[0].action, Action(action::Fixed{0.8}));
    EXPECT_EQ(control<TabularLabel>(0)->text().toStdString(), "80%");
}

TEST_F(ScheduleActions, SpellsMarkupInANameOut) {
    const std::vector<Profile> markup{
        {idOf(1), "<b>a</b> & b", kind::Load{ProfileDefaults::loadCurve()}}};
    editor.display({{0, 60, action::Profile{idOf(1)}}}, markup);
    EXPECT_EQ(picker(0)->toolTip().toStdString(), "<p>&lt;b&gt;a&lt;/b&gt; &amp; b</p>");
    EXPECT_EQ(picker(0)->currentText().toStdString(), "<b>a</b> & b");
}

TEST_F(ScheduleActions, RenamesWhatItOffers) {
    show({{0, 60, action::Profile{idOf(1)}}});
    std::vector<Profile> renamed = targets;
    renamed[0].name = "Silent";
    editor.display({{0, 60, action::Profile{idOf(1)}}}, renamed);
    EXPECT_EQ(entries(0), (QStringList{"Automatic", "Fixed speed", "", "Silent", "Untitled"}));
    EXPECT_EQ(picker(0)->currentText().toStdString(), "Silent");
}

TEST_F(ScheduleActions, TakesTheShownSpeedForOneOutOfRangeOnceItIsConfirmed) {
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
