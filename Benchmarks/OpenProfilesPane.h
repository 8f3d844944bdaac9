#pragma once

#include "Profiles/InProcessNotificationCenter.h"
#include "Profiles/Validation.h"
#include "SimulatedKeys.h"
#include "Simulation/SimulatedClock.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/ProfileDefaults.h"
#include "TervaleWindow/Profiles/ProfilesView.h"

#include <QApplication>
#include <QMouseEvent>

#include <cstdint>
#include <span>
#include <string>

namespace tervale {

class AlwaysVisible final : public Visibility {
  public:
    bool visible() const override { return true; }
};

/// The agent's state with this many load curves.
inline BridgeState stateOfProfiles(std::size_t profiles) {
    BridgeState state;
    for (std::size_t number = 0; number < profiles; ++number) {
        const UUID id{
            {static_cast<std::uint8_t>(number / 256), static_cast<std::uint8_t>(number % 256)}};
        state.profiles.push_back(
            {id, "Profile " + std::to_string(number), kind::Load{ProfileDefaults::loadCurve()}});
    }
    return state;
}

/// The profiles pane with this many load curves, the first of which is selected.
class OpenProfilesPane {
  public:
    explicit OpenProfilesPane(std::size_t profiles) {
        bridge.publish(stateOfProfiles(profiles));
        view.resize(790, 680);
        view.show();
        QCoreApplication::processEvents();
        canvas = view.findChild<CurveCanvas*>();
        send(QEvent::MouseButtonPress, Qt::LeftButton, 0.4);
        validations = 0;
    }

    static constexpr int movesOfADrag = 100;

    /// One drag, each of its moves to another value and painted.
    void drag() {
        for (int move = 0; move < movesOfADrag; ++move) {
            send(QEvent::MouseMove, Qt::NoButton, move % 2 == 0 ? 0.6 : 0.5);
            QCoreApplication::sendPostedEvents();
        }
    }

    std::int64_t validations = 0;

  private:
    void send(QEvent::Type type, Qt::MouseButton button, double speed) const {
        const PlotPoint point = CurvePlot{canvas->plot(), {0, 100}}.position({50, speed});
        const QPointF place(point.x, point.y);
        QMouseEvent event(type, place, canvas->mapToGlobal(place), button, Qt::LeftButton, {});
        QCoreApplication::sendEvent(canvas, &event);
    }

    SimulatedMac mac{macOfKeys(200)};
    InProcessNotificationCenter center;
    Bridge bridge{center};
    SimulatedClock clock;
    AlwaysVisible visibility;
    Model model{mac, bridge, clock, visibility};
    ProfilesView view{model, bridge, nullptr,
                      [this](const Profile& profile, std::span<const Profile> all) {
                          ++validations;
                          return problems(profile, all);
                      }};
    CurveCanvas* canvas = nullptr;
};

} // namespace tervale
