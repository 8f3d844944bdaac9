#include "TervaleWindow/Shell/WindowDelegate.h"

#include "Base/Precondition.h"

#include <QApplication>
#include <QThread>
#include <QTimer>
#include <QWidget>

namespace tervale {

void WindowDelegate::applicationDidFinishLaunching(Bridge& bridge) {
    quitObserver = bridge.onQuitWindow([] {
        precondition(QThread::currentThread() == qApp->thread(),
                     "the request to quit arrived on another thread");
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
