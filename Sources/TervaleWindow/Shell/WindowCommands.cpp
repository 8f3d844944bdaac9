#include "TervaleWindow/Shell/WindowCommands.h"

#include "Platform/Platform.h"
#include "TervaleWindow/Controls/KeyTable.h"
#include "TervaleWindow/Profiles/ProfilesView.h"
#include "TervaleWindow/Sensors/SensorsView.h"
#include "TervaleWindow/Settings/SettingsView.h"
#include "TervaleWindow/Settings/VersionText.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Shell/EditCommands.h"
#include "TervaleWindow/Shell/Pane.h"
#include "TervaleWindow/Shell/SystemMetadata.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMessageBox>

#include <algorithm>

namespace tervale {

namespace {

static_assert(static_cast<int>(KeyCommand::showOverview) == static_cast<int>(Pane::overview) &&
              static_cast<int>(KeyCommand::showSettings) == static_cast<int>(Pane::settings));

/// A row of a table in rich text.
QString keyLine(const QString& title, const QString& keys) {
    return QStringLiteral("<tr><td>%1</td><td style='padding-left: 16px'>%2</td></tr>")
        .arg(title.toHtmlEscaped(), keys.toHtmlEscaped());
}

bool isInTable(const QKeySequence& key) {
    return std::any_of(keyTable().begin(), keyTable().end(),
                       [&key](const KeyRow& row) { return row.keys.contains(key); });
}

/// Whether a window's title bar offers it. A note's, which cannot be resized, does not.
bool hasButton(const QWidget& of, Qt::WindowType button) {
    return of.windowFlags() & button;
}

/// Beside the window rather than before it: what runs there goes on.
void showNote(QWidget& window, const QString& title, const QString& text, const QString& detail) {
    for (auto* open : window.findChildren<QMessageBox*>()) {
        if (open->isVisible() && open->text() == text) {
            open->raise();
            open->activateWindow();
            return;
        }
    }
    auto* note = new QMessageBox(QMessageBox::NoIcon, title, text, QMessageBox::Ok, &window);
    note->setInformativeText(detail);
    note->setAttribute(Qt::WA_DeleteOnClose);
    note->setModal(false);
    note->show();
}

} // namespace

WindowCommands::Place WindowCommands::usualPlace() {
    // Only where windows really are a Mac's: without its menu bar the keys of menus would be dead.
    return QGuiApplication::platformName() == QLatin1String("cocoa") ? Place::menuBar
                                                                     : Place::window;
}

WindowCommands::WindowCommands(ContentView& served, Place place)
    : QObject(&served),
      window(served),
      edit(new EditCommands(this)) {
    makeCommands();
    if (place == Place::menuBar) {
        // The key of a Mac's help opens the search in its Help menu, which is the system's own.
        help->setShortcut({});
        openMenu->setShortcut({});
        makeMenus();
    } else {
        offerInWindow();
    }
    connect(&window, &ContentView::sectionShown, this, &WindowCommands::followSection);
    followSection();
}

void WindowCommands::offerInWindow() {
    offered = panes;
    offered.push_back(settings);
    offered.push_back(findSensor);
    for (QAction* action : edit->history())
        offered.push_back(action);
    for (QAction* action : {closeWindow, quit, help, openMenu})
        offered.push_back(action);
    for (QAction* action : offered)
        window.addAction(action);
    window.installEventFilter(this);
}

QAction* WindowCommands::command(const QString& title, const QList<QKeySequence>& keys, Run run) {
    auto* action = new QAction(title, this);
    action->setShortcuts(keys);
    action->setAutoRepeat(false);
    // Otherwise a Mac takes "Settings" among the panes for the application's own command.
    action->setMenuRole(QAction::NoRole);
    if (run)
        connect(action, &QAction::triggered, this, run);
    return action;
}

QAction* WindowCommands::command(KeyCommand key, Run run) {
    return command(keyRow(key).title, keysOf(key), run);
}

QAction* WindowCommands::paneCommand(Pane pane) {
    QAction* action = command(static_cast<KeyCommand>(pane), nullptr);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, pane] {
        window.setSection(pane);
        // The toolkit takes the mark off the pane that is chosen again.
        followSection();
    });
    return action;
}

void WindowCommands::makeCommands() {
    about = command(tr("About Tervale"), {}, &WindowCommands::showAbout);
    about->setMenuRole(QAction::AboutRole);
    settings = command(KeyCommand::settings, &WindowCommands::showSettings);
    settings->setMenuRole(QAction::PreferencesRole);
    quit = command(KeyCommand::quit, &WindowCommands::quitApplication);
    quit->setMenuRole(QAction::QuitRole);
    for (const Pane pane : allPanes)
        panes.push_back(paneCommand(pane));
    findSensor = command(KeyCommand::find, &WindowCommands::find);
    closeWindow = command(KeyCommand::close, &WindowCommands::closeFront);
    help = command(KeyCommand::showKeys, &WindowCommands::showKeys);
    openMenu = command(KeyCommand::menu, &WindowCommands::showWindowMenu);
}

void WindowCommands::makeMenus() {
    std::vector<QAction*> editing = edit->menu();
    editing.push_back(nullptr);
    editing.push_back(findSensor);
    // The toolkit adds Hide, Hide Others and Show All to the first one, and moves the commands with
    // a role there.
    const std::vector<Menu> menus{
        {tr("Tervale"), {about, nullptr, settings, nullptr, quit}},
        {tr("Edit"), editing},
        {tr("View"), panes},
        {tr("Window"),
         {command(tr("Minimize"), {QKeySequence(Qt::ControlModifier | Qt::Key_M)},
                  &WindowCommands::minimize),
          command(tr("Zoom"), {}, &WindowCommands::zoom), nullptr, closeWindow}},
        {tr("Help"), {help}},
    };
    // Without a parent it is there for every window.
    bar = std::make_unique<QMenuBar>();
    for (const Menu& menu : menus) {
        QMenu* shown = bar->addMenu(menu.title);
        for (QAction* action : menu.actions) {
            if (action)
                offered.push_back(action);
            action ? shown->addAction(action) : static_cast<void>(shown->addSeparator());
        }
        connect(shown, &QMenu::aboutToShow, edit, &EditCommands::enablePossible);
        connect(shown, &QMenu::aboutToHide, edit, &EditCommands::enableUsual);
    }
}

QString WindowCommands::keys() const {
    QString rows;
    for (const KeyRow& row : keyTable()) {
        // Where there is a menu bar, the system has keys of its own for it and for its help.
        const bool inWindow =
            row.command == KeyCommand::showKeys || row.command == KeyCommand::menu;
        if (!(inWindow && bar))
            rows += keyLine(row.title, shownKeys(row, QKeySequence::NativeText));
    }
    // Those of a text field stand in a Mac's menus.
    for (const QAction* action : offered) {
        const QKeySequence key = action->shortcut();
        if (!key.isEmpty() && !isInTable(key))
            rows += keyLine(action->iconText(), key.toString(QKeySequence::NativeText));
    }
    return rows;
}

QMenu& WindowCommands::windowMenu() {
    if (!menuOfWindow) {
        menuOfWindow = new QMenu(&window);
        menuOfWindow->addActions({help, about});
        menuOfWindow->addSeparator();
        menuOfWindow->addActions({settings, quit});
    }
    return *menuOfWindow;
}

void WindowCommands::showWindowMenu() {
    // At the corner where the panes are listed.
    constexpr int inset = 12;
    QMenu& menu = windowMenu();
    const int left =
        window.isRightToLeft() ? window.width() - inset - menu.sizeHint().width() : inset;
    menu.popup(window.mapToGlobal(QPoint(left, inset)));
}

bool WindowCommands::eventFilter(QObject* watched, QEvent* event) {
    // Whatever has a menu of its own, such as a text field, has kept the event.
    if (watched == &window && event->type() == QEvent::ContextMenu) {
        windowMenu().popup(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void WindowCommands::followSection() {
    for (std::size_t pane = 0; pane < allPanes.size(); ++pane)
        panes[pane]->setChecked(window.section() == allPanes[pane]);
    findSensor->setEnabled(qobject_cast<SensorsView*>(window.detail()) != nullptr);
    auto* settingsPane = qobject_cast<SettingsView*>(window.detail());
    if (settingsPane && !bar)
        settingsPane->offerHelp(windowMenu().actions());
    edit->serve(qobject_cast<ProfilesView*>(window.detail()));
}

void WindowCommands::showAbout() {
    showNote(window, tr("About Tervale"), QStringLiteral("Tervale"),
             tr("Version %1").arg(versionText(SystemMetadata(makeBundleText()))));
}

void WindowCommands::showKeys() {
    showNote(window, tr("Keyboard Shortcuts"), tr("Keyboard Shortcuts"),
             QStringLiteral("<table>") + keys() + QStringLiteral("</table>"));
}

void WindowCommands::showSettings() {
    window.setSection(Pane::settings);
}

void WindowCommands::find() {
    if (auto* sensors = qobject_cast<SensorsView*>(window.detail()))
        sensors->find();
}

QWidget& WindowCommands::frontWindow() const {
    QWidget* active = QApplication::activeWindow();
    return active ? *active : window;
}

void WindowCommands::minimize() {
    QWidget& front = frontWindow();
    if (hasButton(front, Qt::WindowMinimizeButtonHint))
        front.showMinimized();
}

void WindowCommands::zoom() {
    QWidget& front = frontWindow();
    if (hasButton(front, Qt::WindowMaximizeButtonHint))
        front.isMaximized() ? front.showNormal() : front.showMaximized();
}

void WindowCommands::closeFront() {
    frontWindow().close();
}

void WindowCommands::quitApplication() {
    window.close();
}

} // namespace tervale
