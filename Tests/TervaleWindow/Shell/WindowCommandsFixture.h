#pragma once

#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Shell/WindowCommands.h"
#include "TervaleWindow/Support/Choosing.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

#include <memory>
#include <stdexcept>

namespace tervale {

/// The window with the commands that it has, and beside them those of a Mac's menu bar.
class WindowCommandsFixture : public ModelFixture {
  protected:
    void show() {
        makeModel();
        view = std::make_unique<ContentView>(*model, bridge);
        view->resize(980, 680);
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }
    WindowCommands& menuBar() {
        if (!bar)
            bar = std::make_unique<WindowCommands>(*view, WindowCommands::Place::menuBar);
        return *bar;
    }
    QAction* action(const QString& menuTitle, const QString& title) {
        for (QAction* entry : menu(menuTitle).actions()) {
            if (entry->text() == title)
                return entry;
        }
        return nullptr;
    }
    QMenu& menu(const QString& title) {
        for (const QAction* each : menuBar().menus()->actions()) {
            if (each->text() == title)
                return *each->menu();
        }
        throw std::invalid_argument("there is no such menu");
    }
    void choose(const QString& menuTitle, const QString& title) {
        tervale::choose(menu(menuTitle), {title});
    }
    static QStringList titles(const QList<QAction*>& actions) {
        QStringList titles;
        for (const QAction* each : actions)
            titles << (each->isSeparator() ? QStringLiteral("-") : each->text());
        return titles;
    }

    /// A window counts as active as soon as the one that it belongs to is; this waits for itself.
    static bool comesToTheFront(QWidget* window) {
        window->activateWindow();
        return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; });
    }

    std::unique_ptr<ContentView> view;
    std::unique_ptr<WindowCommands> bar;
};

} // namespace tervale
