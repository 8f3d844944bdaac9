#include "TervaleWindow/Shell/MenuBar.h"

#include "Platform/Platform.h"
#include "TervaleWindow/Settings/VersionText.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Shell/EditMenu.h"
#include "TervaleWindow/Shell/SystemMetadata.h"

#include <QActionGroup>
#include <QMenuBar>
#include <QMessageBox>
#include <QOperatingSystemVersion>

namespace tervale {

namespace {

bool runsOnMac() {
    return QOperatingSystemVersion::currentType() == QOperatingSystemVersion::MacOS;
}

/// Control, which is Command on a Mac.
QKeySequence withControl(Qt::Key key) {
    return QKeySequence(Qt::ControlModifier | key);
}

/// Lets the window be used while it is open.
void showMessage(QWidget* parent, const QString& title, const QString& text,
                 const QString& details) {
    auto* box = new QMessageBox(QMessageBox::NoIcon, title, text, QMessageBox::Ok, parent);
    box->setInformativeText(details);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}

} // namespace

MenuBar::MenuBar(ContentView& owner) : QObject(&owner), window(owner) {
    addApplicationMenu();
    addEditMenu();
    addViewMenu();
    addWindowMenu();
    addHelpMenu();
    install();
}

QMenu* MenuBar::add(QMenu* menu) {
    all.push_back(menu);
    return menu;
}

// A Mac moves these entries by their roles into the menu that it makes itself, which hides the
// application too, and leaves out this one.
void MenuBar::addApplicationMenu() {
    QMenu* menu = add(new QMenu(QStringLiteral("Tervale"), &window));
    QAction* about = menu->addAction(QStringLiteral("About Tervale"));
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &MenuBar::showAbout);
    QAction* settings = menu->addAction(QStringLiteral("Settings…"));
    settings->setMenuRole(QAction::PreferencesRole);
    settings->setShortcut(withControl(Qt::Key_Comma));
    connect(settings, &QAction::triggered, &window, [this] { window.setSection(Pane::settings); });
    QAction* quit = menu->addAction(QStringLiteral("Quit Tervale"));
    quit->setMenuRole(QAction::QuitRole);
    quit->setShortcut(withControl(Qt::Key_Q));
    connect(quit, &QAction::triggered, &window, &QWidget::close);
}

void MenuBar::addEditMenu() {
    QMenu* menu = add(new EditMenu(&window));
    menu->addSeparator();
    QAction* find = menu->addAction(QStringLiteral("Find"));
    find->setShortcut(QKeySequence::Find);
    const auto update = [this, find] { find->setEnabled(window.canFind()); };
    connect(find, &QAction::triggered, &window, &ContentView::find);
    connect(&window, &ContentView::sectionShown, find, update);
    update();
}

void MenuBar::addViewMenu() {
    QMenu* menu = add(new QMenu(QStringLiteral("View"), &window));
    auto* group = new QActionGroup(menu);
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const Pane pane : allPanes) {
        QAction* entry = group->addAction(menu->addAction(title(pane)));
        entry->setShortcut(withControl(Qt::Key(Qt::Key_1 + static_cast<int>(pane))));
        entry->setCheckable(true);
        const auto update = [this, entry, pane] { entry->setChecked(window.section() == pane); };
        connect(entry, &QAction::triggered, &window, [this, pane, update] {
            window.setSection(pane);
            // The toolkit takes the mark off an entry that is chosen again.
            update();
        });
        connect(&window, &ContentView::sectionShown, entry, update);
        update();
    }
}

void MenuBar::addWindowMenu() {
    QMenu* menu = add(new QMenu(QStringLiteral("Window"), &window));
    QAction* minimize = menu->addAction(QStringLiteral("Minimize"));
    minimize->setShortcut(withControl(Qt::Key_M));
    connect(minimize, &QAction::triggered, &window, &QWidget::showMinimized);
    QAction* zoom = menu->addAction(QStringLiteral("Zoom"));
    connect(zoom, &QAction::triggered, &window, [this] {
        if (window.isMaximized())
            window.showNormal();
        else
            window.showMaximized();
    });
    menu->addSeparator();
    QAction* close = menu->addAction(QStringLiteral("Close"));
    // The best known key first, which some desktops list after another.
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Close);
    keys.removeAll(withControl(Qt::Key_W));
    keys.prepend(withControl(Qt::Key_W));
    close->setShortcuts(keys);
    connect(close, &QAction::triggered, &window, &QWidget::close);
}

void MenuBar::addHelpMenu() {
    QMenu* menu = add(new QMenu(QStringLiteral("Help"), &window));
    QAction* keys = menu->addAction(QStringLiteral("Keyboard Shortcuts"));
    keys->setShortcut(QKeySequence::HelpContents);
    connect(keys, &QAction::triggered, this, &MenuBar::showKeys);
}

void MenuBar::install() {
    auto* bar = runsOnMac() ? new QMenuBar(&window) : nullptr;
    for (QMenu* menu : all) {
        // Otherwise the toolkit would guess roles from titles.
        for (QAction* action : menu->actions()) {
            if (action->menuRole() == QAction::TextHeuristicRole)
                action->setMenuRole(QAction::NoRole);
        }
        if (bar)
            bar->addMenu(menu);
        else
            window.addActions(menu->actions());
    }
}

void MenuBar::showAbout() const {
    showMessage(&window, QStringLiteral("About Tervale"), QStringLiteral("Tervale"),
                QStringLiteral("Version ") + versionText(SystemMetadata(makeBundleText())));
}

void MenuBar::showKeys() const {
    QString rows;
    for (const QMenu* menu : all) {
        for (const QAction* action : menu->actions()) {
            const QString keys = action->shortcut().toString(QKeySequence::NativeText);
            if (!keys.isEmpty())
                rows += QStringLiteral("<tr><td>%1</td><td style='padding-left: 16px'>%2</td></tr>")
                            .arg(keys.toHtmlEscaped(), action->text().toHtmlEscaped());
        }
    }
    showMessage(&window, QStringLiteral("Keyboard Shortcuts"), QStringLiteral("Keyboard Shortcuts"),
                QStringLiteral("<table>") + rows + QStringLiteral("</table>"));
}

} // namespace tervale
