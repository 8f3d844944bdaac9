#include "TervaleWindow/Shell/WindowCommands.h"

#include "Platform/Platform.h"
#include "TervaleWindow/Profiles/ProfilesView.h"
#include "TervaleWindow/Sensors/SensorsView.h"
#include "TervaleWindow/Settings/VersionText.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Shell/EditCommands.h"
#include "TervaleWindow/Shell/SystemMetadata.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>

namespace tervale {

namespace {

QKeySequence controlAnd(Qt::Key key) {
    return {Qt::ControlModifier | key};
}

/// Whether a window's title bar offers it. A note's, which cannot be resized, does not.
bool hasButton(const QWidget& of, Qt::WindowType button) {
    return of.windowFlags() & button;
}

/// Beside the window rather than before it: what runs there goes on.
void showNote(QWidget& window, const QString& title, const QString& text, const QString& detail) {
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
        makeMenus();
    } else {
        offered = panes;
        offered.push_back(settings);
        offered.push_back(findSensor);
        for (QAction* action : edit->history())
            offered.push_back(action);
        for (QAction* action : {closeWindow, quit, help})
            offered.push_back(action);
        for (QAction* action : offered)
            window.addAction(action);
    }
    connect(&window, &ContentView::sectionShown, this, &WindowCommands::followSection);
    followSection();
}

QAction* WindowCommands::command(const QString& title, const QKeySequence& key,
                                 void (WindowCommands::*run)()) {
    auto* action = new QAction(title, this);
    action->setShortcut(key);
    action->setAutoRepeat(false);
    // Otherwise a Mac takes "Settings" among the panes for the application's own command.
    action->setMenuRole(QAction::NoRole);
    if (run)
        connect(action, &QAction::triggered, this, run);
    return action;
}

QAction* WindowCommands::paneCommand(Pane pane) {
    const auto number = static_cast<int>(pane) + 1;
    QAction* action = command(title(pane), controlAnd(Qt::Key(Qt::Key_0 + number)), nullptr);
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
    settings = command(tr("Settings…"), controlAnd(Qt::Key_Comma), &WindowCommands::showSettings);
    settings->setMenuRole(QAction::PreferencesRole);
    quit = command(tr("Quit Tervale"), controlAnd(Qt::Key_Q), &WindowCommands::quitApplication);
    quit->setMenuRole(QAction::QuitRole);
    for (const Pane pane : allPanes)
        panes.push_back(paneCommand(pane));
    findSensor = command(tr("Find"), QKeySequence::Find, &WindowCommands::find);
    closeWindow = command(tr("Close"), QKeySequence::Close, &WindowCommands::closeFront);
    // The best known key first, which some desktops list after another.
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Close);
    keys.removeAll(controlAnd(Qt::Key_W));
    keys.prepend(controlAnd(Qt::Key_W));
    closeWindow->setShortcuts(keys);
    help = command(tr("Keyboard Shortcuts"), QKeySequence::HelpContents, &WindowCommands::showKeys);
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
         {command(tr("Minimize"), controlAnd(Qt::Key_M), &WindowCommands::minimize),
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
    for (const QAction* action : offered) {
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        if (!keys.isEmpty())
            rows += QStringLiteral("<tr><td>%1</td><td style='padding-left: 16px'>%2</td></tr>")
                        .arg(action->iconText().toHtmlEscaped(), keys.toHtmlEscaped());
    }
    return rows;
}

void WindowCommands::followSection() {
    for (std::size_t pane = 0; pane < allPanes.size(); ++pane)
        panes[pane]->setChecked(window.section() == allPanes[pane]);
    findSensor->setEnabled(qobject_cast<SensorsView*>(window.detail()) != nullptr);
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
