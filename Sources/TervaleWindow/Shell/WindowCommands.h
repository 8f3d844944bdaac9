#pragma once

#include <QKeySequence>
#include <QMenuBar>
#include <QObject>

#include <memory>
#include <vector>

namespace tervale {

class ContentView;
class EditCommands;
enum class KeyCommand;
enum class Pane;

/// The commands of the window and their keys, in the menus that a Mac has for them. Elsewhere the
/// window goes without a menu bar and keeps the keys; what has none, About and the list of the keys
/// are in a menu that F10, the Menu key, the pointer's second button and the Settings pane open.
class WindowCommands final : public QObject {
    Q_OBJECT

  public:
    enum class Place { menuBar, window };
    static Place usualPlace();

    /// `window` outlives the object.
    explicit WindowCommands(ContentView& window, Place place = usualPlace());

    /// The menus in their order; nothing in a window that goes without them.
    const QMenuBar* menus() const { return bar.get(); }
    /// What there are keys for, each with them, as rows of a table in rich text.
    QString keys() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Menu {
        QString title;
        /// A null stands for a separator.
        std::vector<QAction*> actions;
    };

    using Run = void (WindowCommands::*)();
    QAction* command(const QString& title, const QList<QKeySequence>& keys, Run run);
    QAction* command(KeyCommand key, Run run);
    QAction* paneCommand(Pane pane);
    void makeCommands();
    void makeMenus();
    void offerInWindow();
    /// The menu of a window without a menu bar, made when it is first asked for.
    QMenu& windowMenu();
    void showWindowMenu();
    void followSection();

    void showAbout();
    void showKeys();
    void showSettings();
    void find();
    /// The window or note that the user is at.
    QWidget& frontWindow() const;
    void minimize();
    void zoom();
    void closeFront();
    void quitApplication();

    ContentView& window;
    EditCommands* edit;
    QAction* about = nullptr;
    QAction* settings = nullptr;
    QAction* quit = nullptr;
    QAction* findSensor = nullptr;
    QAction* closeWindow = nullptr;
    QAction* help = nullptr;
    QAction* openMenu = nullptr;
    std::vector<QAction*> panes;
    std::unique_ptr<QMenuBar> bar;
    QMenu* menuOfWindow = nullptr;
    /// The commands that the user can reach.
    std::vector<QAction*> offered;
};

} // namespace tervale
