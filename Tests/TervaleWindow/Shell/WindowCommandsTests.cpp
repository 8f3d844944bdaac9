#include "TervaleWindow/Controls/KeyTable.h"
#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Sensors/SensorsView.h"
#include "TervaleWindow/Shell/WindowCommandsFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <algorithm>

using namespace tervale;

namespace {

class WindowCommandsTest : public WindowCommandsFixture {};

TEST_F(WindowCommandsTest, HasTheMenusOfAnApplicationInTheirOrder) {
    show();
    const QList<QAction*> menus = menuBar().menus()->actions();
    EXPECT_EQ(titles(menus), (QStringList{"Tervale", "Edit", "View", "Window", "Help"}));
    EXPECT_EQ(titles(menus[0]->menu()->actions()),
              (QStringList{"About Tervale", "-", "Settings…", "-", "Quit Tervale"}));
    EXPECT_EQ(
        titles(menus[1]->menu()->actions()),
        (QStringList{"Undo", "Redo", "-", "Cut", "Copy", "Paste", "Select All", "-", "Find"}));
    EXPECT_EQ(titles(menus[2]->menu()->actions()),
              (QStringList{"Overview", "Sensors", "Profiles", "Settings"}));
    EXPECT_EQ(titles(menus[3]->menu()->actions()), (QStringList{"Minimize", "Zoom", "-", "Close"}));
    EXPECT_EQ(titles(menus[4]->menu()->actions()), QStringList{"Keyboard Shortcuts"});
    EXPECT_EQ(menuBar().menus()->parent(), nullptr);
}

TEST_F(WindowCommandsTest, GivesOnlyTheApplicationsOwnCommandsARole) {
    show();
    EXPECT_EQ(action("Tervale", "About Tervale")->menuRole(), QAction::AboutRole);
    EXPECT_EQ(action("Tervale", "Settings…")->menuRole(), QAction::PreferencesRole);
    EXPECT_EQ(action("Tervale", "Quit Tervale")->menuRole(), QAction::QuitRole);
    EXPECT_EQ(action("View", "Settings")->menuRole(), QAction::NoRole);
    EXPECT_EQ(action("Edit", "Copy")->menuRole(), QAction::NoRole);
}

TEST_F(WindowCommandsTest, HasTheUsualKeys) {
    show();
    EXPECT_EQ(action("Tervale", "Settings…")->shortcut(), QKeySequence("Ctrl+,"));
    EXPECT_EQ(action("View", "Overview")->shortcut(), QKeySequence("Ctrl+1"));
    EXPECT_EQ(action("View", "Settings")->shortcut(), QKeySequence("Ctrl+4"));
    EXPECT_EQ(action("Window", "Minimize")->shortcut(), QKeySequence("Ctrl+M"));
    EXPECT_EQ(action("Window", "Close")->shortcut(), QKeySequence("Ctrl+W"));
    for (const QKeySequence& key : QKeySequence::keyBindings(QKeySequence::Close))
        EXPECT_EQ(action("Window", "Close")->shortcuts().count(key), 1);
    EXPECT_EQ(action("Edit", "Find")->shortcut(), QKeySequence(QKeySequence::Find));
    // The help key is the system's where there are menus.
    EXPECT_TRUE(action("Help", "Keyboard Shortcuts")->shortcut().isEmpty());
}

TEST_F(WindowCommandsTest, ShowsPanes) {
    show();
    choose("View", "Profiles");
    EXPECT_EQ(view->section(), Pane::profiles);
    choose("Tervale", "Settings…");
    EXPECT_EQ(view->section(), Pane::settings);
}

TEST_F(WindowCommandsTest, MarksThePaneThatIsShown) {
    show();
    const auto marked = [this] {
        QStringList all;
        for (const Pane pane : allPanes) {
            if (action("View", title(pane))->isChecked())
                all << title(pane);
        }
        return all;
    };
    EXPECT_EQ(marked(), QStringList{"Overview"});
    choose("View", "Profiles");
    EXPECT_EQ(marked(), QStringList{"Profiles"});
    choose("View", "Profiles");
    EXPECT_EQ(marked(), QStringList{"Profiles"});
    view->setSection(std::nullopt);
    EXPECT_TRUE(marked().isEmpty());
}

TEST_F(WindowCommandsTest, FindsOnlyWhereThereIsAFilter) {
    show();
    EXPECT_FALSE(action("Edit", "Find")->isEnabled());
    view->setSection(Pane::sensors);
    ASSERT_TRUE(action("Edit", "Find")->isEnabled());
    choose("Edit", "Find");
    EXPECT_TRUE(view->findChild<SearchField*>()->hasFocus());
    view->setSection(Pane::profiles);
    EXPECT_FALSE(action("Edit", "Find")->isEnabled());
}

TEST_F(WindowCommandsTest, EditsTheTextThatHasTheFocus) {
    show();
    view->setSection(Pane::sensors);
    auto* field = view->findChild<SearchField*>();
    view->detail()->setFocus();
    field->clearFocus();
    EXPECT_FALSE(action("Edit", "Cut")->isEnabled());
    field->setFocus();
    ASSERT_TRUE(action("Edit", "Cut")->isEnabled());
    QTest::keyClicks(field, "gpu");
    choose("Edit", "Select All");
    EXPECT_EQ(field->selectedText(), "gpu");
    choose("Edit", "Cut");
    EXPECT_EQ(field->text(), "");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "gpu");
    choose("Edit", "Undo");
    EXPECT_EQ(field->text(), "gpu");
    choose("Edit", "Redo");
    EXPECT_EQ(field->text(), "");
    choose("Edit", "Paste");
    EXPECT_EQ(field->text(), "gpu");
}

TEST_F(WindowCommandsTest, OffersOnlyWhatTheFieldHasSomethingToDoFor) {
    show();
    QMenu& edit = menu("Edit");
    const auto offered = [&edit] {
        edit.popup(QPoint(0, 0));
        QStringList all;
        for (const QAction* each : edit.actions()) {
            if (each->isEnabled() && !each->isSeparator())
                all << each->text();
        }
        QTest::keyClick(&edit, Qt::Key_Escape);
        return all;
    };
    QGuiApplication::clipboard()->setText("x");
    view->setSection(Pane::sensors);
    auto* field = view->findChild<SearchField*>();
    field->setFocus();
    EXPECT_EQ(offered(), QStringList({"Paste", "Find"}));
    QTest::keyClicks(field, "cpu");
    EXPECT_EQ(offered(), QStringList({"Undo", "Paste", "Select All", "Find"}));
    field->selectAll();
    EXPECT_EQ(offered(), QStringList({"Undo", "Cut", "Copy", "Paste", "Select All", "Find"}));
    QGuiApplication::clipboard()->clear();
    EXPECT_FALSE(offered().contains("Paste"));
    // The key works as soon as there is something to paste.
    EXPECT_TRUE(action("Edit", "Paste")->isEnabled());
    view->setSection(Pane::settings);
    EXPECT_TRUE(offered().isEmpty());
    EXPECT_FALSE(action("Edit", "Paste")->isEnabled());
}

TEST_F(WindowCommandsTest, MinimizesZoomsAndClosesTheWindow) {
    show();
    choose("Window", "Zoom");
    EXPECT_TRUE(view->isMaximized());
    choose("Window", "Zoom");
    EXPECT_FALSE(view->isMaximized());
    choose("Window", "Minimize");
    EXPECT_TRUE(view->isMinimized());
    view->showNormal();
    choose("Window", "Close");
    EXPECT_FALSE(view->isVisible());
    view->show();
    choose("Tervale", "Quit Tervale");
    EXPECT_FALSE(view->isVisible());
}

TEST_F(WindowCommandsTest, TellsAboutTheApplicationBesideTheWindow) {
    show();
    choose("Tervale", "About Tervale");
    const auto* note = view->findChild<QMessageBox*>();
    ASSERT_NE(note, nullptr);
    EXPECT_TRUE(note->isVisible());
    EXPECT_FALSE(note->isModal());
    EXPECT_EQ(note->text(), "Tervale");
    EXPECT_TRUE(note->informativeText().startsWith("Version "));
}

TEST_F(WindowCommandsTest, MinimizesZoomsAndClosesTheNoteThatIsInFront) {
    show();
    choose("Tervale", "About Tervale");
    QPointer<QMessageBox> note = view->findChild<QMessageBox*>();
    ASSERT_NE(note, nullptr);
    ASSERT_TRUE(comesToTheFront(note));
    choose("Window", "Minimize");
    choose("Window", "Zoom");
    EXPECT_FALSE(view->isMinimized());
    EXPECT_FALSE(view->isMaximized());
    // A note has no button for either.
    EXPECT_FALSE(note->isMinimized());
    EXPECT_FALSE(note->isMaximized());
    choose("Window", "Close");
    EXPECT_TRUE(view->isVisible());
    EXPECT_TRUE(!note || !note->isVisible());
}

TEST_F(WindowCommandsTest, QuitsWithANoteInFront) {
    show();
    choose("Tervale", "About Tervale");
    ASSERT_TRUE(comesToTheFront(view->findChild<QMessageBox*>()));
    choose("Tervale", "Quit Tervale");
    EXPECT_FALSE(view->isVisible());
}

TEST_F(WindowCommandsTest, KeepsItsKeysInAWindowWithoutMenus) {
    show();
    const auto* own = view->findChild<WindowCommands*>();
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->menus(), nullptr);
    const QString key = QKeySequence("Ctrl+1").toString(QKeySequence::NativeText);
    EXPECT_TRUE(own->keys().startsWith("<tr><td>Overview</td><td style='padding-left: 16px'>" +
                                       key + "</td></tr><tr><td>Sensors</td>"));
    QTest::keyClick(view.get(), Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(view->section(), Pane::settings);
    QTest::keyClick(view.get(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(view->section(), Pane::sensors);
    QTest::keySequence(view.get(), QKeySequence(QKeySequence::Find));
    EXPECT_TRUE(view->findChild<SearchField*>()->hasFocus());
    QTest::keySequence(view.get(), QKeySequence(QKeySequence::HelpContents));
    EXPECT_NE(view->findChild<QMessageBox*>(), nullptr);
}

TEST_F(WindowCommandsTest, ShowsEveryKeyThatThereIs) {
    show();
    const QString shown = view->findChild<WindowCommands*>()->keys();
    for (const KeyRow& row : keyTable()) {
        EXPECT_TRUE(shown.contains("<td>" + row.title.toHtmlEscaped() + "</td>"))
            << row.title.toStdString();
        EXPECT_TRUE(shown.contains(shownKeys(row, QKeySequence::NativeText).toHtmlEscaped()))
            << row.title.toStdString();
    }
    // None that the table does not know.
    for (const QAction* each : view->actions()) {
        const auto inTable = [each](const KeyRow& row) {
            return row.keys.contains(each->shortcut());
        };
        EXPECT_TRUE(std::any_of(keyTable().begin(), keyTable().end(), inTable))
            << each->text().toStdString();
    }
    QTest::keyClick(view.get(), Qt::Key_F1);
    const auto* note = view->findChild<QMessageBox*>();
    ASSERT_NE(note, nullptr);
    EXPECT_TRUE(note->informativeText().contains(shown));
}

TEST_F(WindowCommandsTest, NamesThePanesInItsKeysAsTheSidebarDoes) {
    show();
    for (const Pane pane : allPanes)
        EXPECT_EQ(keyRow(static_cast<KeyCommand>(pane)).title, title(pane));
}

TEST_F(WindowCommandsTest, ShowsInAMenuBarOnlyKeysThatWorkThere) {
    show();
    const QString shown = menuBar().keys();
    EXPECT_FALSE(shown.contains("Keyboard Shortcuts"));
    EXPECT_FALSE(shown.contains("<td>Menu</td>"));
    EXPECT_TRUE(shown.contains("<td>Copy</td>"));
    EXPECT_TRUE(shown.contains("<td>Minimize</td>"));
}

/// The menu of a window without a menu bar.
class WindowMenu : public WindowCommandsFixture {
  protected:
    static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    void expectHelpAndAbout() {
        QMenu* open = openMenu();
        ASSERT_NE(open, nullptr);
        EXPECT_EQ(titles(open->actions()), (QStringList{"Keyboard Shortcuts", "About Tervale", "-",
                                                        "Settings…", "Quit Tervale"}));
        ASSERT_TRUE(take(*open, "About Tervale"));
        const auto* note = view->findChild<QMessageBox*>();
        ASSERT_NE(note, nullptr);
        EXPECT_EQ(note->text(), "Tervale");
    }
};

TEST_F(WindowMenu, OpensByAKey) {
    show();
    QTest::keyClick(view.get(), Qt::Key_F10);
    expectHelpAndAbout();
}

TEST_F(WindowMenu, OpensWhereNothingHasAMenuOfItsOwn) {
    show();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(90, 400),
                            view->mapToGlobal(QPoint(90, 400)));
    QWidget* there = view->childAt(90, 400);
    QApplication::sendEvent(there, &event);
    expectHelpAndAbout();
}

TEST_F(WindowMenu, OpensByAButtonOfTheSettingsPane) {
    show();
    view->setSection(Pane::settings);
    SymbolButton* help = nullptr;
    for (auto* each : view->detail()->findChildren<SymbolButton*>()) {
        if (each->accessibleName() == "Help")
            help = each;
    }
    ASSERT_NE(help, nullptr);
    ASSERT_TRUE(help->isVisible());
    // A key opens the menu and comes back only once it is closed.
    QTimer::singleShot(0, view.get(), [this] {
        expectHelpAndAbout();
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    });
    QTest::keyClick(help, Qt::Key_Space);
    EXPECT_NE(view->findChild<QMessageBox*>(), nullptr);
}

TEST_F(WindowMenu, OpensANoteOnce) {
    show();
    const QList<QAction*> offered = view->actions();
    const auto help = std::find_if(offered.begin(), offered.end(), [](const QAction* each) {
        return each->text() == "Keyboard Shortcuts";
    });
    ASSERT_NE(help, offered.end());
    const auto notes = [this] {
        const auto all = view->findChildren<QMessageBox*>();
        return std::count_if(all.begin(), all.end(), [](auto* each) { return each->isVisible(); });
    };
    (*help)->trigger();
    (*help)->trigger();
    EXPECT_EQ(notes(), 1);
    view->findChild<QMessageBox*>()->close();
    EXPECT_EQ(notes(), 0);
    (*help)->trigger();
    EXPECT_EQ(notes(), 1);
}

} // namespace
