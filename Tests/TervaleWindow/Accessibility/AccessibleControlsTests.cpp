#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Accessibility/AccessiblePopUp.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/MenuButton.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Controls/SegmentedPicker.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Controls/ToggleSwitch.h"
#include "TervaleWindow/Support/ControlsFixture.h"

#include <QAbstractItemView>
#include <QMenu>
#include <QRadioButton>
#include <QSignalSpy>
#include <QToolButton>

using namespace tervale;

class AccessibleControls : public ControlsFixture {
  protected:
    void SetUp() override {
        ControlsFixture::SetUp();
        installAccessibleFactory();
    }

    template <class Control>
    Control& show(Control* made) {
        control.reset(made);
        present(*made);
        return *made;
    }
    static void act(QWidget& widget, const QString& action) {
        accessible(widget)->actionInterface()->doAction(action);
    }

    std::unique_ptr<QWidget> control;
};

TEST_F(AccessibleControls, TellWhetherAModeIsSelected) {
    ModeButton& button = show(new ModeButton("50%"));
    QAccessibleInterface* mode = accessible(button);
    EXPECT_EQ(mode->text(QAccessible::Name), "50%");
    EXPECT_TRUE(mode->state().checkable);
    EXPECT_FALSE(mode->state().checked);
    button.setSelected(Selection::selected);
    EXPECT_TRUE(mode->state().checked);
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    act(button, QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_TRUE(button.isSelected());
}

TEST_F(AccessibleControls, ShowSegmentsAsRadioButtons) {
    SegmentedPicker& picker = show(new SegmentedPicker({"Hottest sensor", "Core average"}));
    const QList<QRadioButton*> segments = picker.findChildren<QRadioButton*>();
    ASSERT_EQ(segments.size(), 2);
    QAccessibleInterface* second = accessible(*segments[1]);
    EXPECT_EQ(second->role(), QAccessible::RadioButton);
    EXPECT_EQ(second->text(QAccessible::Name), "Core average");
    EXPECT_FALSE(second->state().checked);
    QSignalSpy chosen(&picker, &SegmentedPicker::chosen);
    act(*segments[1], second->actionInterface()->actionNames().first());
    EXPECT_TRUE(second->state().checked);
    EXPECT_EQ(picker.selected(), 1);
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(AccessibleControls, LeaveToASwitchsOwnerWhatComesOfAClick) {
    ToggleSwitch& toggle = show(new ToggleSwitch("Launch at login"));
    QAccessibleInterface* box = accessible(toggle);
    EXPECT_EQ(box->role(), QAccessible::CheckBox);
    EXPECT_EQ(box->text(QAccessible::Name), "Launch at login");
    QSignalSpy requests(&toggle, &ToggleSwitch::requested);
    act(toggle, QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(requests.count(), 1);
    EXPECT_FALSE(box->state().checked);
    toggle.setEnabled(false);
    act(toggle, QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(requests.count(), 1);
}

namespace {

PopUpButton* profiles() {
    auto* button = new PopUpButton;
    button->addItems({"No profile", "Quiet"});
    button->setAccessibleName("Profile");
    return button;
}

} // namespace

TEST_F(AccessibleControls, ShowAPopUpWithItsNameItsEntryAndItsList) {
    PopUpButton& button = show(profiles());
    EXPECT_EQ(accessible(button)->role(), QAccessible::ComboBox);
    EXPECT_EQ(accessible(button)->text(QAccessible::Name), "Profile");
    EXPECT_EQ(accessible(button)->text(QAccessible::Value), "No profile");
    act(button, QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(button.view()->isVisible());
    EXPECT_TRUE(accessible(button)->state().expanded);
    EXPECT_EQ(accessible(button)->child(0)->role(), QAccessible::List);
    button.hidePopup();
}

TEST_F(AccessibleControls, GiveThePopUpsEntryAsItsValueWhereValuesAreTexts) {
    PopUpButton& button = show(profiles());
    AccessiblePopUp onAMac(button, ChoiceValues::inValueInterface);
    ASSERT_NE(onAMac.valueInterface(), nullptr);
    EXPECT_EQ(onAMac.valueInterface()->currentValue().toString(), "No profile");
    button.setCurrentIndex(1);
    EXPECT_EQ(onAMac.valueInterface()->currentValue().toString(), "Quiet");
    AccessiblePopUp elsewhere(button, ChoiceValues::inTexts);
    EXPECT_EQ(elsewhere.valueInterface(), nullptr);
}

TEST_F(AccessibleControls, ReadThePopUpsEntryAsItsTextElsewhere) {
    PopUpButton& button = show(profiles());
    button.setToolTip("<p>No profile</p>");
    QAccessibleTextInterface* entry = accessible(button)->textInterface();
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->text(0, entry->characterCount()), "No profile");
    button.setCurrentIndex(1);
    EXPECT_EQ(entry->text(0, entry->characterCount()), "Quiet");
    EXPECT_EQ(accessible(button)->text(QAccessible::Description), "");
    AccessiblePopUp onAMac(button, ChoiceValues::inValueInterface);
    EXPECT_EQ(onAMac.textInterface(), nullptr);
}

TEST_F(AccessibleControls, OpenAMenuByAnActionThatReturns) {
    MenuButton& button = show(new MenuButton("Timer", new QMenu));
    QSignalSpy chosen(button.menu()->addAction("1 hour"), &QAction::triggered);
    EXPECT_EQ(accessible(button)->role(), QAccessible::ButtonMenu);
    EXPECT_EQ(accessible(button)->text(QAccessible::Name), "Timer");
    act(button, QAccessibleActionInterface::showMenuAction());
    ASSERT_TRUE(button.menu()->isVisible());
    EXPECT_TRUE(accessible(button)->state().expanded);
    QAccessibleInterface* menu = accessible(button)->child(0);
    EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
    EXPECT_EQ(accessible(button)->indexOfChild(menu), 0);
    menu->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_FALSE(button.menu()->isVisible());
    act(button, QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(button.menu()->isVisible());
    act(button, QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(button.menu()->isVisible());
}

TEST_F(AccessibleControls, PressAButtonWithoutAMenu) {
    SymbolButton& button = show(new SymbolButton(Symbol::minus, "Remove profile"));
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    EXPECT_EQ(accessible(button)->role(), QAccessible::Button);
    EXPECT_EQ(accessible(button)->text(QAccessible::Description), "");
    act(button, QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 1);
    button.setEnabled(false);
    EXPECT_FALSE(accessible(button)->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::pressAction()));
}

TEST_F(AccessibleControls, NameTheButtonsOfASearch) {
    SearchField& field = show(new SearchField("Filter sensors"));
    field.setText("gpu");
    QStringList names;
    for (auto* button : field.findChildren<QToolButton*>())
        names << accessible(*button)->text(QAccessible::Name);
    names.sort();
    EXPECT_EQ(names, (QStringList{"Clear", "Search"}));
}

TEST_F(AccessibleControls, ShowTheSliderInPercent) {
    auto& slider = show(new FractionSlider);
    slider.setAccessibleName("Speed");
    slider.setFraction(0.496);
    EXPECT_EQ(accessible(slider)->role(), QAccessible::Slider);
    EXPECT_EQ(accessible(slider)->text(QAccessible::Name), "Speed");
    EXPECT_EQ(accessible(slider)->text(QAccessible::Value), "50%");
    QAccessibleValueInterface* value = accessible(slider)->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toString(), "50%");
    EXPECT_EQ(value->currentValue().toDouble(), 50);
    EXPECT_EQ(value->minimumValue().toDouble(), 0);
    EXPECT_EQ(value->maximumValue().toDouble(), 100);
    EXPECT_EQ(value->minimumStepSize().toDouble(), 1);
}

TEST_F(AccessibleControls, MakeEachChangeOfTheSliderAGesture) {
    auto& slider = show(new FractionSlider);
    QString reports;
    QObject::connect(&slider, &FractionSlider::editingChanged, &slider,
                     [&reports](bool editing) { reports += editing ? '+' : '-'; });
    QAccessibleValueInterface* value = accessible(slider)->valueInterface();
    value->setCurrentValue(75);
    EXPECT_DOUBLE_EQ(slider.fraction(), 0.75);
    EXPECT_EQ(reports, "+-");
    act(slider, QAccessibleActionInterface::increaseAction());
    EXPECT_NEAR(slider.fraction(), 0.76, 1e-9);
    act(slider, QAccessibleActionInterface::decreaseAction());
    EXPECT_NEAR(slider.fraction(), 0.75, 1e-9);
    EXPECT_EQ(reports, "+-+-+-");
    value->setCurrentValue("no number");
    slider.setEnabled(false);
    value->setCurrentValue(10);
    EXPECT_EQ(reports, "+-+-+-");
}

TEST_F(AccessibleControls, GiveTheTimeThatAFieldShowsAsItsValue) {
    auto& field = show(new TimeField);
    field.setLocale(QLocale::c());
    field.setAccessibleName("From");
    field.setMinuteOfDay(425);
    QAccessibleInterface* time = accessible(field);
    EXPECT_EQ(time->role(), QAccessible::SpinBox);
    EXPECT_EQ(time->text(QAccessible::Name), "From");
    EXPECT_EQ(time->text(QAccessible::Value), field.text());
    ASSERT_NE(time->valueInterface(), nullptr);
    EXPECT_EQ(time->valueInterface()->currentValue().toString(), field.text());
    EXPECT_EQ(time->valueInterface()->currentValue().toDouble(), 425);
}

TEST_F(AccessibleControls, StepATimeAsTheKeysDo) {
    auto& field = show(new TimeField);
    field.setMinuteOfDay(425);
    QSignalSpy changes(&field, &TimeField::minuteOfDayChanged);
    act(field, QAccessibleActionInterface::increaseAction());
    EXPECT_NE(field.minuteOfDay(), 425);
    act(field, QAccessibleActionInterface::decreaseAction());
    EXPECT_EQ(field.minuteOfDay(), 425);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(AccessibleControls, SetATimeAsThePersonDoes) {
    auto& field = show(new TimeField);
    field.setLocale(QLocale::c());
    QSignalSpy changes(&field, &TimeField::minuteOfDayChanged);
    QAccessibleValueInterface* value = accessible(field)->valueInterface();
    value->setCurrentValue(8 * 60);
    EXPECT_EQ(field.text(), "08:00");
    for (const QVariant& none : {QVariant(-1), QVariant(1440), QVariant("no number")})
        value->setCurrentValue(none);
    EXPECT_EQ(changes.count(), 1);
    QAccessibleTextInterface* text = accessible(field)->textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(0, text->characterCount()), "08:00");
    accessible(field)->editableTextInterface()->replaceText(0, 5, "09:30");
    EXPECT_EQ(field.minuteOfDay(), 9 * 60 + 30);
    EXPECT_EQ(changes.count(), 2);
}
