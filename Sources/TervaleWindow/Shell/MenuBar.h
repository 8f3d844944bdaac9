#pragma once

#include <QObject>

#include <vector>

class QMenu;

namespace tervale {

class ContentView;

/// The window's commands, each made once with its key. On a Mac they are the entries of the menu
/// bar; elsewhere, where such a window has none, the keys alone are there.
class MenuBar final : public QObject {
    Q_OBJECT

  public:
    /// Belongs to the window.
    explicit MenuBar(ContentView& window);

    const std::vector<QMenu*>& menus() const { return all; }

  private:
    QMenu* add(QMenu* menu);
    void addApplicationMenu();
    void addEditMenu();
    void addViewMenu();
    void addWindowMenu();
    void addHelpMenu();
    void install();

    void showAbout() const;
    void showKeys() const;

    ContentView& window;
    std::vector<QMenu*> all;
};

} // namespace tervale
