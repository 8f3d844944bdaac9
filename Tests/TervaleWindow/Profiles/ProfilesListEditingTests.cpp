#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Profiles/ProfilesFixture.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"

#include <QMenu>

namespace tervale {
namespace {

class ProfilesListEditing : public ProfilesFixture {};

TEST_F(ProfilesListEditing, AddsEveryKindOfProfile) {
    openWith({});
    add("Temperature curve");
    EXPECT_EQ(selectedName().toStdString(), "Temperature");
    EXPECT_NE(canvas(), nullptr);
    add("Load curve");
    EXPECT_EQ(selectedName().toStdString(), "Load");
    EXPECT_TRUE(labels().contains("Follows CPU or GPU load, whichever is higher."));
    add("Schedule");
    EXPECT_EQ(selectedName().toStdString(), "Schedule");
    EXPECT_NE(find<ScheduleEditor>(), nullptr);
    add("Temperature curve");
    EXPECT_EQ(names(), (QStringList{"Temperature", "Load", "Schedule", "Temperature 2"}));
    click("Save");
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    const auto& saved = std::get<command::SaveProfiles>(commands[0]).profiles;
    ASSERT_EQ(saved.size(), 4U);
    EXPECT_EQ(saved[0].kind, ProfileKind(kind::Temperature{{SensorGroup::cpu, false},
                                                           ProfileDefaults::temperatureCurve()}));
    EXPECT_EQ(saved[1].kind, ProfileKind(kind::Load{ProfileDefaults::loadCurve()}));
    EXPECT_EQ(saved[2].kind, ProfileKind(kind::Schedule{ProfileDefaults::schedule()}));
}

TEST_F(ProfilesListEditing, TypesTheNameOfAProfileThatWasAdded) {
    openWith(threeProfiles);
    add("Load curve");
    view->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return nameField()->hasFocus(); }));
    EXPECT_EQ(nameField()->selectedText().toStdString(), "Load");
    QTest::keyClicks(QApplication::focusWidget(), "Compiling");
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night", "Compiling"}));
    EXPECT_EQ(view->history().undoText().toStdString(), "Rename Profile");
    view->undo();
    EXPECT_EQ(nameField()->text().toStdString(), "Load");
    view->undo();
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
}

TEST_F(ProfilesListEditing, OffersItsMenuInOrder) {
    openWith({});
    QStringList titles;
    for (const QAction* offered : button<SymbolButton>("Add profile")->menu()->actions())
        titles.push_back(offered->text());
    EXPECT_EQ(titles, (QStringList{"Temperature curve", "Load curve", "Schedule"}));
}

TEST_F(ProfilesListEditing, DuplicatesAndRemovesByItsButtons) {
    openWith(threeProfiles);
    clickRow(1);
    click("Duplicate profile");
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night", "Busy copy"}));
    EXPECT_EQ(selectedName().toStdString(), "Busy copy");
    click("Remove profile");
    EXPECT_EQ(selectedName().toStdString(), "Night");
    EXPECT_FALSE(button("Revert")->isEnabled());
}

TEST_F(ProfilesListEditing, RemovesByKeysInTheList) {
    openWith({loadProfile(1, "One"), loadProfile(2, "Two")});
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Down);
    EXPECT_EQ(nameField()->text().toStdString(), "Two");
    QTest::keyClick(list(), Qt::Key_Delete);
    EXPECT_EQ(names(), QStringList{"One"});
    EXPECT_EQ(nameField()->text().toStdString(), "One");
    EXPECT_TRUE(list()->hasFocus());
    QTest::keyClick(list(), Qt::Key_Backspace);
    EXPECT_TRUE(labels().contains("No profile selected"));
    EXPECT_FALSE(button("Remove profile")->isEnabled());
    EXPECT_FALSE(button("Duplicate profile")->isEnabled());
    click("Save");
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::SaveProfiles{}});
}

TEST_F(ProfilesListEditing, DeletesTextAndNoProfileInTheNameField) {
    openWith(threeProfiles);
    nameField()->setFocus();
    nameField()->end(false);
    QTest::keyClick(nameField(), Qt::Key_Backspace);
    EXPECT_EQ(names(), (QStringList{"War", "Busy", "Night"}));
}

TEST_F(ProfilesListEditing, ShowsNothingByControlClickOnTheSelectedRow) {
    openWith(threeProfiles);
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      list()->visualRect(list()->model()->index(0, 0)).center());
    EXPECT_EQ(nameField(), nullptr);
    EXPECT_EQ(names().size(), 3);
    clickRow(0);
    EXPECT_EQ(nameField()->text().toStdString(), "Warm");
}

TEST_F(ProfilesListEditing, EditsTheFirstOfTwoProfilesWithTheSameId) {
    openWith({loadProfile(1, "One"), loadProfile(1, "Other")});
    typeName("Uno");
    EXPECT_EQ(names(), (QStringList{"Uno", "Other"}));
}

} // namespace
} // namespace tervale
