#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Profiles/ProfilesFixture.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QRadioButton>
#include <QShortcut>

namespace tervale {
namespace {

class ProfilesFocus : public ProfilesFixture {
  protected:
    /// What has the focus after each of so many tabs; once for all sections of one field.
    QStringList walk(int stops) const {
        QStringList walked;
        const QWidget* last = nullptr;
        while (walked.size() < stops) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget* reached = QApplication::focusWidget();
            if (reached == last)
                continue;
            last = reached;
            const auto* named = qobject_cast<const QAbstractButton*>(reached);
            if (qobject_cast<const QRadioButton*>(reached))
                walked.push_back("segment");
            else if (reached->accessibleName().isEmpty() && named)
                walked.push_back(named->text());
            else
                walked.push_back(reached->accessibleName());
        }
        return walked;
    }
};

TEST_F(ProfilesFocus, WalksThroughItsControlsInReadingOrder) {
    openWith(threeProfiles);
    list()->setFocus();
    const QStringList walked = walk(8);
    EXPECT_EQ(walked.join(", ").toStdString(),
              "Add profile, Duplicate profile, Remove profile, Name, Follow, segment, "
              "Fan speed curve, Profiles");
}

TEST_F(ProfilesFocus, WalksThroughWindowsThatWereAddedLater) {
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    click("Add Window");
    QCoreApplication::processEvents();
    nameField()->setFocus();
    const QStringList walked = walk(10);
    EXPECT_EQ(walked.join(", ").toStdString(),
              "From, window 1 of 2, To, window 1 of 2, Run, window 1 of 2, Remove window 1 of 2, "
              "From, window 2 of 2, To, window 2 of 2, Run, window 2 of 2, Remove window 2 of 2, "
              "Add Window, Revert");
}

TEST_F(ProfilesFocus, LandsOnTheChosenReadingByTab) {
    openWith(threeProfiles);
    auto* follow = editor()->findChild<PopUpButton*>();
    follow->setFocus();
    QTest::keyClick(follow, Qt::Key_Tab);
    auto* segment = qobject_cast<QRadioButton*>(QApplication::focusWidget());
    ASSERT_NE(segment, nullptr);
    EXPECT_EQ(segment->text().toStdString(), "Core average");
    QTest::keyClick(segment, Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), follow);
}

TEST_F(ProfilesFocus, KeepsTheFocusInTheListsColumnWhenTheLastProfileGoes) {
    openWith({loadProfile(1, "One"), loadProfile(2, "Two")});
    auto* remove = button<SymbolButton>("Remove profile");
    remove->setFocus(Qt::TabFocusReason);
    QTest::keyClick(remove, Qt::Key_Space);
    EXPECT_TRUE(remove->hasFocus());
    QTest::keyClick(remove, Qt::Key_Space);
    EXPECT_TRUE(button<SymbolButton>("Add profile")->hasFocus());
    EXPECT_TRUE(hasKeyboardFocus(*button<SymbolButton>("Add profile")));
    say({loadProfile(1, "One")});
    click("Revert");
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Delete);
    ASSERT_TRUE(names().isEmpty());
    EXPECT_TRUE(button<SymbolButton>("Add profile")->hasFocus());
    EXPECT_EQ(list()->focusPolicy(), Qt::NoFocus);
}

TEST_F(ProfilesFocus, GivesTheFocusBackToTheListAfterSaveAndRevert) {
    openWith({loadProfile(1, "One"), loadProfile(2, "Two")});
    const auto type = [this] {
        nameField()->setFocus();
        QTest::keyClicks(nameField(), "x");
    };
    type();
    button("Revert")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button("Revert"), Qt::Key_Space);
    EXPECT_TRUE(list()->hasFocus());
    type();
    button("Save")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button("Save"), Qt::Key_Space);
    say(std::get<command::SaveProfiles>(takeCommands().back()).profiles);
    EXPECT_FALSE(button("Save")->isEnabled());
    EXPECT_TRUE(list()->hasFocus());
}

TEST_F(ProfilesFocus, ShowsWhichRowTheKeyboardIsAt) {
    openWith({loadProfile(1, "One"), loadProfile(2, "Two")});
    nameField()->setFocus();
    const QImage elsewhere = list()->grab().toImage();
    list()->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(list()->grab().toImage(), elsewhere);
    nameField()->setFocus();
    view->setAttribute(Qt::WA_KeyboardFocusChange);
    list()->setFocus(Qt::TabFocusReason);
    EXPECT_NE(list()->grab().toImage(), elsewhere);
}

TEST_F(ProfilesFocus, ActsOnceForAKeyThatIsHeldDown) {
    openWith(threeProfiles);
    for (const QShortcut* shortcut : view->findChildren<QShortcut*>())
        EXPECT_FALSE(shortcut->autoRepeat()) << shortcut->key().toString().toStdString();
    EXPECT_EQ(view->findChildren<QShortcut*>().size(), 3);
}

} // namespace
} // namespace tervale
