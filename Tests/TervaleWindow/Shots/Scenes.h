#pragma once

#include "Profiles/Bridge.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Support/FakeController.h"

#include <QImage>
#include <QPalette>
#include <QSize>
#include <QString>

#include <functional>
#include <vector>

namespace tervale {

/// One situation of the window.
struct Scene {
    QString name;
    Pane pane = Pane::overview;
    QSize size{980, 680};
    /// Of the agent, before it tells its state; without an agent it tells none.
    std::function<void(BridgeState&)> agent{};
    bool hasAgent = true;
    std::function<void(FakeController&)> machine{};
    /// The row that is chosen in the list of profiles.
    int profile = 0;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    /// What the user does once the window is shown.
    std::function<void(ContentView&)> user{};
    /// Takes the palette's place where there is one; true for the dark scheme.
    std::function<QPalette(bool dark)> palette{};
};

/// Every pane, and every state that is worth seeing.
std::vector<Scene> allScenes();

/// Makes the application draw the same each time: no motion, no blinking, one locale.
void holdStill();

/// Has everything within the widget laid out and drawn, and whatever moves at its end.
void settle(QWidget& widget);

/// The window as it is drawn in the application's style, in as many pixels as the application's
/// scale has it.
QImage draw(const Scene& scene, const QPalette& palette, bool dark);

} // namespace tervale
