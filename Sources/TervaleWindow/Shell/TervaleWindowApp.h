#pragma once

#include "Machine/Machine.h"
#include "Platform/Platform.h"
#include "Profiles/Bridge.h"
#include "Profiles/Clock.h"
#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Shell/WindowDelegate.h"
#include "TervaleWindow/Shell/WindowVisibility.h"

#include <memory>

namespace tervale {

/// The application: the machine it shows, the one model, and the one window. Needs an application
/// object of the toolkit before it.
class TervaleWindowApp {
  public:
    /// The window's first size, in logical pixels.
    static constexpr int defaultWidth = 980;
    static constexpr int defaultHeight = 680;

    explicit TervaleWindowApp(Machine machine);

    /// Opens the window with this pane.
    void launch(Pane pane);

    ContentView& window() { return *content; }
    /// Whether there is a machine to show, once the window is open.
    bool hasMachine() const;

  private:
    // In the order of who uses whom.
    Machine machine;
    Bridge bridge;
    SystemClock clock;
    WindowVisibility visibility;
    WindowDelegate delegate{makeOpenMenuCanceller()};
    std::unique_ptr<Model> model;
    std::unique_ptr<ContentView> content;
    ObserverToken channelObserver;
};

} // namespace tervale
