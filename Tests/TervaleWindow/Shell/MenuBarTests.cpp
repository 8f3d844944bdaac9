#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Shell/EditMenu.h"
#include "TervaleWindow/Shell/MenuBar.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QOperatingSystemVersion>
#include <QTest>

#include <set>

using namespace tervale;

namespace {

QMenu* menuTitled(const MenuBar& bar, const QString& title) {
    for (QMenu* menu : bar.menus()) {
        if (menu->title() == title)
            return menu;
    }
    return nullptr;
}

QAction* entryOf(QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

QStringList texts(const QMenu& menu) {
    QStringList all;
    for (const QAction* action : menu.actions())
        all << (action->isSeparator() ? QString("-") : action->text());
    return all;
}

} // namespace

class Menus : public ModelFixture {
  protected:
    void SetUp() override {
        controller.set("Tp01", 58);
        makeModel();
        window = std::make_unique<ContentView>(*model, bridge);
        window->resize(980, 680);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    MenuBar& bar() { return *window->findChild<MenuBar*>(); }
    QAction& entry(const QString& menu, const QString& text) {
        return *entryOf(*menuTitled(bar(), menu), text);
    }
    SearchField& search() {
        window->setSection(Pane::sensors);
        return *window->findChild<SearchField*>();
    }
    /// The text of the message that is open.
    QString message() {
        const auto* box = window->findChild<QMessageBox*>();
        return box && box->isVisible() ? box->text() + "|" + box->informativeText() : QString();
    }

    std::unique_ptr<ContentView> window;
};

TEST_F(Menus, AreThoseOfEveryMacApplication) {
    QStringList titles;
    for (const QMenu* menu : bar().menus())
        titles << menu->title();
    EXPECT_EQ(titles, QStringList({"Tervale", "Edit", "View", "Window", "Help"}));
    EXPECT_EQ(texts(*menuTitled(bar(), "Tervale")),
              QStringList({"About Tervale", "Settings…", "Quit Tervale"}));
    EXPECT_EQ(texts(*menuTitled(bar(), "Edit")), QStringList({"Undo", "Redo", "-", "Cut", "Copy",
                                                              "Paste", "Select All", "-", "Find"}));
    EXPECT_EQ(texts(*menuTitled(bar(), "View")),
              QStringList({"Overview", "Sensors", "Profiles", "Settings"}));
    EXPECT_EQ(texts(*menuTitled(bar(), "Window")), QStringList({"Minimize", "Zoom", "-", "Close"}));
    EXPECT_EQ(texts(*menuTitled(bar(), "Help")), QStringList({"Keyboard Shortcuts"}));
}

TEST_F(Menus, AreShownOnlyByAMac) {
    const bool mac = QOperatingSystemVersion::currentType() == QOperatingSystemVersion::MacOS;
    EXPECT_EQ(window->findChildren<QMenuBar*>().size(), mac ? 1 : 0);
    EXPECT_EQ(window->detail()->mapTo(window.get(), QPoint()).y(), 0);
}

TEST_F(Menus, GiveRolesToTheEntriesOfTheApplicationAlone) {
    EXPECT_EQ(entry("Tervale", "About Tervale").menuRole(), QAction::AboutRole);
    EXPECT_EQ(entry("Tervale", "Settings…").menuRole(), QAction::PreferencesRole);
    EXPECT_EQ(entry("Tervale", "Quit Tervale").menuRole(), QAction::QuitRole);
    for (const QMenu* menu : bar().menus()) {
        if (menu->title() == "Tervale")
            continue;
        for (const QAction* action : menu->actions())
            EXPECT_EQ(action->menuRole(), QAction::NoRole) << action->text().toStdString();
    }
}

TEST_F(Menus, GiveNoKeyTwice) {
    std::set<QString> seen;
    for (const QMenu* menu : bar().menus()) {
        for (const QAction* action : menu->actions()) {
            for (const QKeySequence& keys : action->shortcuts())
                EXPECT_TRUE(seen.insert(keys.toString()).second) << keys.toString().toStdString();
        }
    }
    for (const QString keys : {"Ctrl+,", "Ctrl+Q", "Ctrl+F", "Ctrl+1", "Ctrl+4", "Ctrl+M", "Ctrl+W",
                               "Ctrl+Z", "Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A"})
        EXPECT_EQ(seen.count(keys), 1U) << keys.toStdString();
}

TEST_F(Menus, MarkThePaneThatIsShown) {
    const auto marked = [this] {
        QStringList all;
        for (const QAction* action : menuTitled(bar(), "View")->actions()) {
            if (action->isChecked())
                all << action->text();
        }
        return all;
    };
    EXPECT_EQ(marked(), QStringList{"Overview"});
    entry("View", "Profiles").trigger();
    EXPECT_EQ(window->section(), Pane::profiles);
    EXPECT_EQ(marked(), QStringList{"Profiles"});
    entry("View", "Profiles").trigger();
    EXPECT_EQ(marked(), QStringList{"Profiles"});
    window->setSection(Pane::sensors);
    EXPECT_EQ(marked(), QStringList{"Sensors"});
    window->setSection(std::nullopt);
    EXPECT_TRUE(marked().isEmpty());
}

TEST_F(Menus, OpenTheSettings) {
    QTest::keyClick(window.get(), Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(window->section(), Pane::settings);
    window->setSection(Pane::overview);
    entry("Tervale", "Settings…").trigger();
    EXPECT_EQ(window->section(), Pane::settings);
}

TEST_F(Menus, FindOnlyWhereThereIsAFilter) {
    EXPECT_FALSE(entry("Edit", "Find").isEnabled());
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(window->section(), Pane::overview);
    auto& filter = search();
    ASSERT_TRUE(entry("Edit", "Find").isEnabled());
    filter.setText("tp");
    filter.clearFocus();
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(filter.hasFocus());
    EXPECT_EQ(filter.selectedText(), "tp");
    window->setSection(Pane::profiles);
    EXPECT_FALSE(entry("Edit", "Find").isEnabled());
}

TEST_F(Menus, EditTheFieldThatHasTheFocus) {
    auto& filter = search();
    filter.setFocus();
    QTest::keyClicks(&filter, "cpu");
    entry("Edit", "Undo").trigger();
    EXPECT_EQ(filter.text(), "");
    entry("Edit", "Redo").trigger();
    EXPECT_EQ(filter.text(), "cpu");
    entry("Edit", "Select All").trigger();
    EXPECT_EQ(filter.selectedText(), "cpu");
    entry("Edit", "Cut").trigger();
    EXPECT_EQ(filter.text(), "");
    EXPECT_EQ(QApplication::clipboard()->text(), "cpu");
    QApplication::clipboard()->setText("gpu");
    entry("Edit", "Paste").trigger();
    EXPECT_EQ(filter.text(), "gpu");
    filter.setSelection(0, 1);
    entry("Edit", "Copy").trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), "g");
}

TEST_F(Menus, LeaveTheKeysOfEditingToTheField) {
    auto& filter = search();
    filter.setFocus();
    QTest::keyClicks(&filter, "cpu");
    QTest::keyClick(&filter, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&filter, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "cpu");
    QTest::keyClick(&filter, Qt::Key_End);
    QTest::keyClick(&filter, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(filter.text(), "cpucpu");
    QTest::keyClick(&filter, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(filter.text(), "cpu");
}

TEST_F(Menus, OfferToEditOnlyWhatCanBeEdited) {
    QMenu& edit = *menuTitled(bar(), "Edit");
    const auto offered = [&edit] {
        emit edit.aboutToShow();
        QStringList all;
        for (const QAction* action : edit.actions()) {
            if (action->isEnabled() && !action->isSeparator())
                all << action->text();
        }
        emit edit.aboutToHide();
        return all;
    };
    QApplication::clipboard()->setText("x");
    EXPECT_TRUE(offered().isEmpty());
    auto& filter = search();
    filter.setFocus();
    EXPECT_EQ(offered(), QStringList({"Paste", "Find"}));
    QTest::keyClicks(&filter, "cpu");
    EXPECT_EQ(offered(), QStringList({"Undo", "Paste", "Select All", "Find"}));
    filter.selectAll();
    EXPECT_EQ(offered(), QStringList({"Undo", "Cut", "Copy", "Paste", "Select All", "Find"}));
    QApplication::clipboard()->clear();
    EXPECT_FALSE(offered().contains("Paste"));
    window->setSection(Pane::settings);
    EXPECT_TRUE(offered().isEmpty());
    EXPECT_FALSE(entry("Edit", "Copy").isEnabled());
}

TEST_F(Menus, EditTheFieldWithinATimeField) {
    TimeField time(window.get());
    time.show();
    time.setFocus();
    ASSERT_EQ(QApplication::focusWidget(), &time);
    entry("Edit", "Select All").trigger();
    entry("Edit", "Copy").trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), time.text());
}

TEST_F(Menus, MinimizeAndZoomAndCloseTheWindow) {
    QTest::keyClick(window.get(), Qt::Key_M, Qt::ControlModifier);
    EXPECT_TRUE(window->isMinimized());
    window->showNormal();
    entry("Window", "Zoom").trigger();
    EXPECT_TRUE(window->isMaximized());
    entry("Window", "Zoom").trigger();
    EXPECT_FALSE(window->isMaximized());
    entry("Window", "Close").trigger();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Menus, CloseTheWindowToQuit) {
    entry("Tervale", "Quit Tervale").trigger();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Menus, TellTheVersion) {
    entry("Tervale", "About Tervale").trigger();
    EXPECT_TRUE(message().startsWith("Tervale|Version ")) << message().toStdString();
    EXPECT_TRUE(message().endsWith(")"));
}

TEST_F(Menus, ListTheirKeys) {
    entry("Help", "Keyboard Shortcuts").trigger();
    const auto keysOf = [this](const QString& menu, const QString& text) {
        const QString keys = entry(menu, text).shortcut().toString(QKeySequence::NativeText);
        return QString(R"(<td>%1</td><td style='padding-left: 16px'>%2</td>)").arg(keys, text);
    };
    for (const QString& line :
         {keysOf("View", "Sensors"), keysOf("Edit", "Find"), keysOf("Tervale", "Settings…"),
          keysOf("Window", "Minimize"), keysOf("Window", "Close")})
        EXPECT_TRUE(message().contains(line)) << message().toStdString();
    EXPECT_EQ(entry("Window", "Close").shortcut(), QKeySequence("Ctrl+W"));
    EXPECT_FALSE(message().contains("Zoom"));
}
