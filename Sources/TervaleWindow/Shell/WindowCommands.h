#pragma once

#include <QKeySequence>
#include <QMenuBar>
#include <QObject>

#include <memory>
#include <vector>

namespace tervale {

class ContentView;
class EditCommands;
enum class Pane;

/// The commands of the window and their keys, in the menus that a Mac has for them. Elsewhere the
/// window goes without menus and keeps the keys.
class WindowCommands final : public QObject {
    Q_OBJECT

  public:
    enum class Place { menuBar, window };
    static Place usualPlace();

    /// `window` outlives the object.
    explicit WindowCommands(ContentView& window, Place place = usualPlace());

    /// The menus in their order; nothing in a window that goes without them.
    const QMenuBar* menus() const { return bar.get(); }
    /// The commands that have a key, each with it, as rows of a table in rich text.
    QString keys() const;

  private:
    struct Menu {
        QString title;
        /// A null stands for a separator.
        std::vector<QAction*> actions;
    };

    QAction* command(const QString& title, const QKeySequence& key, void (WindowCommands::*run)());
    QAction* paneCommand(Pane pane);
    void makeCommands();
    void makeMenus();
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
    std::vector<QAction*> panes;
    std::unique_ptr<QMenuBar> bar;
    /// The commands that the user can reach.
    std::vector<QAction*> offered;
};

} // namespace tervale
