#include "TervaleWindow/Shell/WindowVisibility.h"

#include <QWindow>

namespace tervale {

bool WindowVisibility::visible() const {
    if (!followed)
        return true;
    const QWindow* handle = followed->windowHandle();
    return handle && followed->isVisible() && handle->isExposed() && !followed->isMinimized();
}

} // namespace tervale
