#include "TervaleWindow/Shell/WindowVisibility.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace tervale {

namespace {

bool isOnScreen(const QWindow* window) {
    // Not every window system takes a minimised window for one that is not exposed.
    return window->isVisible() && window->isExposed() &&
           !window->windowStates().testFlag(Qt::WindowMinimized);
}

} // namespace

bool WindowVisibility::visible() const {
    if (!followed)
        return true;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return QGuiApplication::applicationState() != Qt::ApplicationHidden &&
           std::any_of(windows.begin(), windows.end(), isOnScreen);
}

} // namespace tervale
