#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SegmentedPicker.h"
#include "TervaleWindow/Profiles/ProfilesFixture.h"
#include "TervaleWindow/Support/Choosing.h"

#include <QAccessible>
#include <QRadioButton>

namespace tervale {
namespace {

class ProfileDetail : public ProfilesFixture {};

TEST_F(ProfileDetail, TypesANameWithoutLosingCursorOrFocus) {
    openWith(threeProfiles);
    QLineEdit* field = nameField();
    field->setFocus();
    field->setCursorPosition(2);
    QTest::keyClicks(field, "xy");
    EXPECT_EQ(nameField(), field);
    EXPECT_EQ(field->cursorPosition(), 4);
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(names()[0].toStdString(), "Waxyrm");
}

TEST_F(ProfileDetail, TakesANameFromAssistiveTechnology) {
    openWith(threeProfiles);
    QAccessibleEditableTextInterface* text =
        QAccessible::queryAccessibleInterface(nameField())->editableTextInterface();
    ASSERT_NE(text, nullptr);
    text->replaceText(0, 4, "Hot");
    EXPECT_EQ(names()[0].toStdString(), "Hot");
    text->insertText(3, "ter");
    EXPECT_EQ(names()[0].toStdString(), "Hotter");
    EXPECT_TRUE(button("Save")->isEnabled());
    EXPECT_EQ(view->history().count(), 2);
    view->undo();
    EXPECT_EQ(nameField()->text().toStdString(), "Hot");
    view->undo();
    EXPECT_EQ(names()[0].toStdString(), "Warm");
    EXPECT_EQ(nameField()->text().toStdString(), "Warm");
    view->redo();
    EXPECT_EQ(view->history().count(), 2);
    click("Save");
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    EXPECT_EQ(std::get<command::SaveProfiles>(commands[0]).profiles[0].name, "Hot");
}

TEST_F(ProfileDetail, MakesNoStepOfANameThatItShows) {
    openWith(threeProfiles);
    clickRow(1);
    EXPECT_EQ(nameField()->text().toStdString(), "Busy");
    clickRow(0);
    EXPECT_EQ(view->history().count(), 0);
    EXPECT_FALSE(button("Save")->isEnabled());
}

TEST_F(ProfileDetail, EditsACurveByTheMouse) {
    openWith(threeProfiles);
    QTest::mousePress(canvas(), Qt::LeftButton, {}, placeOf({60, 0.35}));
    EXPECT_TRUE(canvas()->state().dragging);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, placeOf({66, 0.5}));
    click("Save");
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    const Profile saved = std::get<command::SaveProfiles>(commands[0]).profiles[0];
    EXPECT_EQ(std::get<kind::Temperature>(saved.kind).curve.points[1].x, 66);
    EXPECT_NEAR(std::get<kind::Temperature>(saved.kind).curve.points[1].speed, 0.5, 0.011);
}

TEST_F(ProfileDetail, ChoosesWhichReadingACurveFollows) {
    openWith(threeProfiles);
    auto* follow = editor()->findChild<PopUpButton*>();
    auto* reading = editor()->findChild<SegmentedPicker*>();
    EXPECT_EQ(follow->currentText().toStdString(), "CPU");
    EXPECT_EQ(reading->title(0).toStdString(), "Hottest sensor");
    EXPECT_EQ(reading->title(1).toStdString(), "Core average");
    EXPECT_EQ(reading->selected(), 1);
    EXPECT_EQ(follow->count(), 6);
    choose(*follow, 3);
    EXPECT_EQ(reading->title(1).toStdString(), "Average");
    QTest::mouseClick(reading->findChildren<QRadioButton*>()[0], Qt::LeftButton);
    click("Save");
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    const Profile saved = std::get<command::SaveProfiles>(commands[0]).profiles[0];
    EXPECT_EQ(std::get<kind::Temperature>(saved.kind).input,
              (TemperatureInput{SensorGroup::ssd, false}));
}

TEST_F(ProfileDetail, MovesTheMarkerWithTheReading) {
    controller.set("Tp01", 58);
    openWith(threeProfiles);
    const QImage warm = canvas()->grab().toImage();
    controller.set("Tp01", 80);
    clock.time = clock.time + 120.0;
    model->refresh();
    ASSERT_EQ(model->summary().at({SensorGroup::cpu, true}), 80.0);
    EXPECT_NE(canvas()->grab().toImage(), warm);
}

} // namespace
} // namespace tervale
