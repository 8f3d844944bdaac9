#pragma once

#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Simulation/Simulation.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Support/Settable.h"

#include <QListView>
#include <QTest>

namespace tervale {

/// The window on a simulated Mac with its agent, in virtual time.
struct SimulatedWindow {
    InMemoryPreferences preferences;
    InProcessNotificationCenter center;
    Bridge bridge{center};
    SettableClock clock;
    SettableVisibility visibility;
    SettableTimer timer;
    Simulation simulation{{.scenario = Scenario::work}, center, preferences, clock};
    Model model{simulation.mac(), bridge, clock, visibility, timer.factory()};
    ContentView window{model, bridge};

    /// The visible widget of this text or accessible name; null if there is none.
    template <class Widget>
    Widget* find(const QString& text) const {
        for (auto* widget : window.findChildren<Widget*>()) {
            if (widget->isVisibleTo(&window) &&
                (widget->accessibleName() == text || widget->property("text").toString() == text))
                return widget;
        }
        return nullptr;
    }

    /// Walks to a profile in the list of the pane, if that is shown.
    void selectProfile(int row) const {
        auto* list = find<QListView>("Profiles");
        if (!list)
            return;
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 0; step < row; ++step)
            QTest::keyClick(list, Qt::Key_Down);
    }
};

} // namespace tervale
