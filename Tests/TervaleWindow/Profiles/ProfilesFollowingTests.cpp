#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Profiles/ProfilesFixture.h"
#include "TervaleWindow/Support/InLocale.h"

#include <QLabel>
#include <QMouseEvent>

namespace tervale {
namespace {

class ProfilesFollowing : public ProfilesFixture {};

TEST_F(ProfilesFollowing, StaysEmptyUntilTheAgentAnswers) {
    open();
    EXPECT_TRUE(names().isEmpty());
    EXPECT_TRUE(labels().contains("No profile selected"));
    EXPECT_TRUE(labels().contains(
        "Add one with + to make the fan follow temperature, load or the time of day."));
    EXPECT_FALSE(button("Save")->isEnabled());
    EXPECT_FALSE(button("Revert")->isEnabled());
    EXPECT_FALSE(button<SymbolButton>("Add profile")->isEnabled());
}

TEST_F(ProfilesFollowing, InvitesToAddAProfileOnceThatIsPossible) {
    open();
    const QLabel* invitation = nullptr;
    for (const QLabel* label : view->findChildren<QLabel*>()) {
        if (label->text().startsWith("Add one with +"))
            invitation = label;
    }
    ASSERT_NE(invitation, nullptr);
    auto* add = button<SymbolButton>("Add profile");
    EXPECT_FALSE(invitation->isEnabled());
    EXPECT_EQ(add->toolTip(), "Waiting for Tervale in the menu bar…");
    EXPECT_EQ(add->accessibleDescription(), add->toolTip());
    say({});
    EXPECT_TRUE(invitation->isVisible());
    EXPECT_TRUE(invitation->isEnabled());
    EXPECT_TRUE(add->isEnabled());
    EXPECT_EQ(add->toolTip(), "Add profile");
    EXPECT_EQ(add->accessibleDescription(), QString());
}

TEST_F(ProfilesFollowing, LoadsWhatTheAgentPublishes) {
    open();
    say(threeProfiles);
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
    EXPECT_EQ(selectedName().toStdString(), "Warm");
    EXPECT_EQ(nameField()->text().toStdString(), "Warm");
    EXPECT_TRUE(button<SymbolButton>("Add profile")->isEnabled());
}

TEST_F(ProfilesFollowing, FollowsTheAgentWhileNothingIsEdited) {
    openWith(threeProfiles);
    say({threeProfiles[0], loadProfile(7, "Seven")});
    EXPECT_EQ(names(), (QStringList{"Warm", "Seven"}));
    EXPECT_FALSE(button("Revert")->isEnabled());
}

TEST_F(ProfilesFollowing, KeepsUnsavedEditsWhateverTheAgentSays) {
    openWith(threeProfiles);
    typeName("Hot");
    say({loadProfile(7, "Seven")});
    EXPECT_EQ(names(), (QStringList{"Hot", "Busy", "Night"}));
    EXPECT_EQ(nameField()->text().toStdString(), "Hot");
    EXPECT_TRUE(nameField()->hasFocus());
    EXPECT_TRUE(button("Save")->isEnabled());
}

TEST_F(ProfilesFollowing, SelectsTheFirstProfileWithWhateverStateComesAfterTheLastWasRemoved) {
    openWith({loadProfile(1, "One")});
    click("Remove profile");
    click("Revert");
    EXPECT_EQ(selectedName(), QString());
    BridgeState state;
    state.profiles = {loadProfile(1, "One")};
    state.status = "The fans do not answer.";
    publish(state);
    EXPECT_EQ(selectedName().toStdString(), "One");
    EXPECT_EQ(nameField()->text().toStdString(), "One");
}

TEST_F(ProfilesFollowing, StartsAnewEachTimeItIsShown) {
    openWith(threeProfiles);
    typeName("Hot");
    open();
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
    EXPECT_FALSE(button("Revert")->isEnabled());
}

TEST_F(ProfilesFollowing, KeepsWhatIsDraggedWhenAStateArrives) {
    openWith(threeProfiles);
    QTest::mousePress(canvas(), Qt::LeftButton, {}, placeOf({60, 0.35}));
    QMouseEvent move(QEvent::MouseMove, placeOf({66, 0.5}),
                     canvas()->mapToGlobal(placeOf({66, 0.5})), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(canvas(), &move);
    say({loadProfile(7, "Seven")});
    EXPECT_EQ(canvas()->state().dragging, 1U);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, placeOf({70, 0.5}));
    EXPECT_EQ(canvas()->state().curve.points[1].x, 70);
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
}

TEST_F(ProfilesFollowing, ForgetsAHalfTypedTimeWithTheProfile) {
    const InLocale twentyFourHours(QLocale::c());
    openWith({scheduleProfile(1, "Night", action::Automatic{}), loadProfile(2, "Busy")});
    typeHour("1");
    say({loadProfile(2, "Busy")});
    EXPECT_EQ(names(), QStringList{"Busy"});
    EXPECT_EQ(nameField(), nullptr);
    EXPECT_FALSE(button("Revert")->isEnabled());
}

} // namespace
} // namespace tervale
