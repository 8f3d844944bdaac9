#include "TervaleWindow/Shell/WindowDelegate.h"

#include "Base/Precondition.h"

#include <QApplication>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace tervale {

WindowDelegate::WindowDelegate(std::function<void()> cancelMenus)
    : cancelOpenMenus(std::move(cancelMenus)) {}

void WindowDelegate::applicationDidFinishLaunching(Bridge& bridge) {
    quitObserver = bridge.onQuitWindow([this] {
        precondition(QThread::currentThread() == qApp->thread(),
                     "the request to quit arrived on another thread");
        // An open menu of the system's would keep the application until the user lets go of it.
        if (cancelOpenMenus)
            cancelOpenMenus();
        QCoreApplication::exit();
    });
    for (QWidget* window : QApplication::topLevelWidgets()) {
        window->raise();
        window->activateWindow();
    }
    QTimer::singleShot(0, this, &WindowDelegate::setMinimumSizes);
}

void WindowDelegate::setMinimumSizes() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowType() == Qt::Window)
            window->setMinimumSize(minimumWidth, minimumHeight);
    }
}

} // namespace tervale
