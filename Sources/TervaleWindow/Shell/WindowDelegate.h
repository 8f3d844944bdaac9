#pragma once

#include "Profiles/Bridge.h"

#include <QObject>

#include <functional>

namespace tervale {

/// Follows the application's life: sizes its windows once they are there, and ends it when the
/// agent asks for that. (Closing the last window ends it too, which is the toolkit's own default.)
class WindowDelegate final : public QObject {
    Q_OBJECT

  public:
    /// The smallest size of a window's content, in logical pixels.
    static constexpr int minimumWidth = 780;
    static constexpr int minimumHeight = 520;

    /// `cancelMenus` ends menus of the system's that are held open; null where there are none.
    explicit WindowDelegate(std::function<void()> cancelMenus = nullptr);

    /// To be called once the first window is shown. `bridge` outlives the delegate.
    void applicationDidFinishLaunching(Bridge& bridge);

  private:
    static void setMinimumSizes();

    std::function<void()> cancelOpenMenus;
    ObserverToken quitObserver;
};

} // namespace tervale
