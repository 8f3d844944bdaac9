#include "TervaleWindow/Profiles/ProfileDefaults.h"
#include "TervaleWindow/Shell/WindowCommandsFixture.h"

#include <QAbstractButton>
#include <QKeySequence>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>

#include <utility>
#include <variant>
#include <vector>

namespace tervale {
namespace {

/// Undo and Redo by their keys and in the menu, on a pane with two profiles.
class UndoCommands : public WindowCommandsFixture {
  protected:
    void showProfiles() {
        show();
        say({{UUID{{1}}, "Quiet", kind::Load{ProfileDefaults::loadCurve()}},
             {UUID{{2}}, "Loud", kind::Load{ProfileDefaults::loadCurve()}}});
        view->setSection(Pane::profiles);
        takeCommands();
    }
    /// The agent publishes these profiles.
    void say(const std::vector<Profile>& profiles) {
        BridgeState state;
        state.profiles = profiles;
        publish(state);
    }
    /// What goes to the agent, which does not answer yet.
    std::vector<Profile> pressSave() {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
        return std::get<command::SaveProfiles>(takeCommands().at(0)).profiles;
    }
    bool canSave() const {
        for (auto* button : view->findChildren<QAbstractButton*>()) {
            if (button->text() == "Save")
                return button->isEnabled();
        }
        return false;
    }
    QListView* list() const {
        for (auto* found : view->findChildren<QListView*>()) {
            if (found->accessibleName() == "Profiles")
                return found;
        }
        return nullptr;
    }
    QLineEdit* nameField() const {
        for (auto* found : view->findChildren<QLineEdit*>()) {
            if (found->accessibleName() == "Name")
                return found;
        }
        return nullptr;
    }
    QStringList names() const {
        QStringList result;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            result << list()->model()->index(row, 0).data().toString();
        return result;
    }
    void removeFirst() const {
        list()->setFocus();
        QTest::keyClick(list(), Qt::Key_Delete);
    }
    static void press(Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, modifiers);
    }
    static void pressUndo() { press(Qt::ControlModifier); }
    static void pressRedo() { press(Qt::ControlModifier | Qt::ShiftModifier); }
    /// The titles of Undo and Redo as the open menu shows them, in brackets if they are disabled.
    QStringList offered() {
        QMenu& edit = menu("Edit");
        edit.popup(QPoint(0, 0));
        QStringList all;
        for (const QAction* each : {edit.actions()[0], edit.actions()[1]})
            all << (each->isEnabled() ? each->text() : "(" + each->text() + ")");
        edit.close();
        return all;
    }
};

TEST_F(UndoCommands, UndoAndRedoByTheirKeys) {
    showProfiles();
    removeFirst();
    EXPECT_EQ(names(), QStringList{"Loud"});
    pressUndo();
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
    pressUndo();
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
    pressRedo();
    EXPECT_EQ(names(), QStringList{"Loud"});
    // Wherever in the window the focus is.
    view->findChild<QListWidget*>()->setFocus();
    pressUndo();
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
}

TEST_F(UndoCommands, AreNamedAfterTheStep) {
    showProfiles();
    EXPECT_EQ(offered(), (QStringList{"(Undo)", "(Redo)"}));
    removeFirst();
    EXPECT_EQ(offered(), (QStringList{"Undo Remove Profile", "(Redo)"}));
    choose("Edit", "Undo Remove Profile");
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
    EXPECT_EQ(offered(), (QStringList{"(Undo)", "Redo Remove Profile"}));
    choose("Edit", "Redo Remove Profile");
    EXPECT_EQ(names(), QStringList{"Loud"});
}

TEST_F(UndoCommands, ArePlainOnAnotherPane) {
    showProfiles();
    removeFirst();
    ASSERT_EQ(offered(), (QStringList{"Undo Remove Profile", "(Redo)"}));
    view->setSection(Pane::overview);
    EXPECT_EQ(offered(), (QStringList{"(Undo)", "(Redo)"}));
    view->setSection(Pane::profiles);
    EXPECT_EQ(offered(), (QStringList{"(Undo)", "(Redo)"}));
}

TEST_F(UndoCommands, AreTheFieldsAsLongAsItHasSomethingToUndo) {
    showProfiles();
    removeFirst();
    nameField()->setFocus();
    nameField()->end(false);
    QTest::keyClicks(nameField(), "er");
    EXPECT_EQ(names(), QStringList{"Louder"});
    pressUndo();
    EXPECT_EQ(names(), QStringList{"Loud"});
    pressRedo();
    EXPECT_EQ(names(), QStringList{"Louder"});
    pressUndo();
    // The field has nothing left.
    pressUndo();
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
    pressRedo();
    EXPECT_EQ(names(), QStringList{"Loud"});
}

TEST_F(UndoCommands, AreNamedAfterTheStepOnceTheFieldIsLeft) {
    showProfiles();
    nameField()->setFocus();
    QTest::keyClicks(nameField(), "x");
    EXPECT_EQ(offered(), (QStringList{"Undo", "(Redo)"}));
    nameField()->setFocus();
    QTest::keyClick(nameField(), Qt::Key_Return);
    EXPECT_EQ(offered(), (QStringList{"Undo Rename Profile", "(Redo)"}));
}

TEST_F(UndoCommands, TakeBackATypedNameThatWasLeftWhileItsFieldHasTheFocusAgain) {
    showProfiles();
    nameField()->setFocus();
    nameField()->end(false);
    QTest::keyClicks(nameField(), "er");
    list()->setFocus();
    nameField()->setFocus();
    pressUndo();
    EXPECT_EQ(names()[0], "Quiet");
    pressRedo();
    EXPECT_EQ(names()[0], "Quieter");
}

TEST_F(UndoCommands, UndoARevertAndAreListedWithTheirKeys) {
    showProfiles();
    removeFirst();
    for (auto* button : view->findChildren<QAbstractButton*>()) {
        if (button->text() == "Revert")
            QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
    pressUndo();
    EXPECT_EQ(names(), QStringList{"Loud"});
    const QString keys = view->findChild<WindowCommands*>()->keys();
    for (const auto& [title, key] : {std::pair("Undo", "Ctrl+Z"), {"Redo", "Ctrl+Shift+Z"}})
        EXPECT_TRUE(keys.contains(
            QStringLiteral("<tr><td>%1</td><td style='padding-left: 16px'>%2</td></tr>")
                .arg(title, QKeySequence(key).toString(QKeySequence::NativeText))));
}

TEST_F(UndoCommands, KeepWhatWasUndoneBetweenASaveAndTheAgentsAnswer) {
    showProfiles();
    removeFirst();
    const std::vector<Profile> saved = pressSave();
    pressUndo();
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
    say(saved);
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
    EXPECT_TRUE(canSave());
    EXPECT_EQ(offered(), (QStringList{"(Undo)", "Redo Remove Profile"}));
    pressRedo();
    EXPECT_EQ(names(), QStringList{"Loud"});
    EXPECT_FALSE(canSave());
}

TEST_F(UndoCommands, KeepWhatWasTypedBetweenASaveAndTheAgentsAnswer) {
    showProfiles();
    nameField()->setFocus();
    nameField()->end(false);
    QTest::keyClicks(nameField(), "er");
    const std::vector<Profile> saved = pressSave();
    EXPECT_EQ(saved[0].name, "Quieter");
    // As it was before, letter by letter.
    for (int letter = 0; letter < 2; ++letter)
        QTest::keyClick(nameField(), Qt::Key_Backspace);
    say(saved);
    EXPECT_EQ(nameField()->text(), "Quiet");
    EXPECT_EQ(names()[0], "Quiet");
    EXPECT_TRUE(canSave());
    EXPECT_EQ(pressSave()[0].name, "Quiet");
}

TEST_F(UndoCommands, GoOnWithADraftThatIsKeptWhenTheAgentHasOtherProfiles) {
    showProfiles();
    removeFirst();
    say({{UUID{{3}}, "From elsewhere", kind::Load{ProfileDefaults::loadCurve()}}});
    EXPECT_EQ(names(), QStringList{"Loud"});
    pressUndo();
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
    EXPECT_TRUE(canSave());
    pressRedo();
    EXPECT_EQ(names(), QStringList{"Loud"});
}

TEST_F(UndoCommands, DoNothingWithoutAnythingToUndo) {
    showProfiles();
    nameField()->setFocus();
    pressUndo();
    pressRedo();
    view->setSection(Pane::settings);
    QTest::keyClick(view.get(), Qt::Key_Z, Qt::ControlModifier);
    view->setSection(Pane::profiles);
    EXPECT_EQ(names(), (QStringList{"Quiet", "Loud"}));
}

} // namespace
} // namespace tervale
