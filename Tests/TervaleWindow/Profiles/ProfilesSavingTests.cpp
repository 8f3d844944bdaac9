#include "TervaleWindow/Profiles/ProfilesFixture.h"
#include "TervaleWindow/Support/HeardEvents.h"
#include "TervaleWindow/Support/InLocale.h"

namespace tervale {
namespace {

class ProfilesSaving : public ProfilesFixture {};

TEST_F(ProfilesSaving, SavesAsOneCommandAndWaitsForTheAgent) {
    openWith(threeProfiles);
    typeName("Hot");
    click("Save");
    auto expected = threeProfiles;
    expected[0].name = "Hot";
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::SaveProfiles{expected}});
    EXPECT_TRUE(button("Save")->isEnabled());
    say(threeProfiles);
    EXPECT_EQ(nameField()->text().toStdString(), "Hot");
    say(expected);
    EXPECT_FALSE(button("Save")->isEnabled());
    EXPECT_FALSE(button("Revert")->isEnabled());
    EXPECT_EQ(nameField()->text().toStdString(), "Hot");
}

TEST_F(ProfilesSaving, AnnouncesOnceThatTheAgentHasSaved) {
    openWith(threeProfiles);
    HeardEvents heard;
    typeName("Hot");
    click("Save");
    const auto saved = std::get<command::SaveProfiles>(takeCommands().at(0)).profiles;
    EXPECT_EQ(heard.takeAnnouncements(), QStringList());
    say(saved);
    EXPECT_EQ(heard.takeAnnouncements(), QStringList{"The profiles are saved."});
    // Of whatever else changes nothing is said.
    BridgeState state;
    state.profiles = saved;
    state.launchAtLogin = true;
    publish(state);
    say(oneTwoThree);
    EXPECT_EQ(heard.takeAnnouncements(), QStringList());
}

TEST_F(ProfilesSaving, SavesByItsShortcutOnlyWhatCanBeSaved) {
    openWith(threeProfiles);
    const auto pressSave = [this] { QTest::keyClick(nameField(), Qt::Key_S, Qt::ControlModifier); };
    pressSave();
    EXPECT_TRUE(takeCommands().empty());
    typeName("");
    pressSave();
    EXPECT_TRUE(takeCommands().empty());
    typeName("Hot");
    pressSave();
    EXPECT_EQ(takeCommands().size(), 1U);
}

TEST_F(ProfilesSaving, SavesATimeThatIsHalfTyped) {
    const InLocale twentyFourHours(QLocale::c());
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    typeHour("1");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    const Profile saved = std::get<command::SaveProfiles>(commands[0]).profiles[0];
    EXPECT_EQ(std::get<kind::Schedule>(saved.kind).windows[0].start, 60);
}

TEST_F(ProfilesSaving, KeepsWhatWasEditedAfterItWasSaved) {
    openWith(threeProfiles);
    typeName("One");
    click("Save");
    const auto first = std::get<command::SaveProfiles>(takeCommands().at(0)).profiles;
    typeName("Two");
    say(first);
    EXPECT_EQ(nameField()->text().toStdString(), "Two");
    EXPECT_TRUE(button("Save")->isEnabled());
    click("Save");
    const auto second = std::get<command::SaveProfiles>(takeCommands().at(0)).profiles;
    EXPECT_EQ(second[0].name, "Two");
    say(second);
    EXPECT_FALSE(button("Save")->isEnabled());
}

TEST_F(ProfilesSaving, KeepsALongNameWhole) {
    const std::string name(40000, 'x');
    openWith({loadProfile(1, name), loadProfile(2, "Busy")});
    nameField()->setFocus();
    QTest::keyClick(nameField(), Qt::Key_End);
    QTest::keyClicks(nameField(), "y");
    EXPECT_EQ(nameField()->text().toStdString(), name + "y");
    click("Save");
    EXPECT_EQ(std::get<command::SaveProfiles>(takeCommands().at(0)).profiles[0].name, name + "y");
}

TEST_F(ProfilesSaving, GoesAwayInTheMiddleOfATime) {
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    typeHour("1");
    view.reset();
    EXPECT_TRUE(takeCommands().empty());
}

TEST_F(ProfilesSaving, MarksAProfileWithoutANameAndSaysWhy) {
    openWith(threeProfiles);
    typeName("");
    EXPECT_EQ(names(), (QStringList{"!Untitled", "Busy", "Night"}));
    EXPECT_TRUE(labels().contains("Give the profile a name."));
    EXPECT_TRUE(labels().contains("Fix the marked profiles to save."));
    EXPECT_FALSE(button("Save")->isEnabled());
    EXPECT_TRUE(button("Revert")->isEnabled());
    typeName("Cool");
    EXPECT_FALSE(labels().contains("Give the profile a name."));
    EXPECT_FALSE(labels().contains("Fix the marked profiles to save."));
    EXPECT_TRUE(button("Save")->isEnabled());
}

TEST_F(ProfilesSaving, MarksASchedulesWhoseProfileIsRemoved) {
    openWith(threeProfiles);
    clickRow(1);
    click("Remove profile");
    EXPECT_EQ(names(), (QStringList{"Warm", "!Night"}));
    EXPECT_TRUE(labels().contains("A window runs a profile that no longer exists."));
    EXPECT_FALSE(button("Save")->isEnabled());
}

TEST_F(ProfilesSaving, RevertsToTheAgentsListAndKeepsTheSelection) {
    openWith(threeProfiles);
    clickRow(1);
    typeName("Idle");
    click("Revert");
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
    EXPECT_EQ(selectedName().toStdString(), "Busy");
    EXPECT_EQ(nameField()->text().toStdString(), "Busy");
    add("Load curve");
    click("Revert");
    EXPECT_EQ(selectedName(), QString());
    EXPECT_TRUE(labels().contains("No profile selected"));
}

} // namespace
} // namespace tervale
