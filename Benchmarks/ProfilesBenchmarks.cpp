#include "Profiles/InProcessNotificationCenter.h"
#include "Profiles/Validation.h"
#include "SimulatedKeys.h"
#include "Simulation/SimulatedClock.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/ProfileDefaults.h"
#include "TervaleWindow/Profiles/ProfilesView.h"

#include <QApplication>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

using namespace tervale;

namespace {

constexpr int moves = 100;

class AlwaysVisible final : public Visibility {
  public:
    bool visible() const override { return true; }
};

/// The profiles pane with this many load curves, the first of which is selected.
class OpenPane {
  public:
    explicit OpenPane(std::int64_t profiles) {
        BridgeState state;
        for (std::int64_t number = 0; number < profiles; ++number)
            state.profiles.push_back({UUID::random(), "Profile " + std::to_string(number),
                                      kind::Load{ProfileDefaults::loadCurve()}});
        bridge.publish(state);
        view.resize(790, 680);
        view.show();
        QCoreApplication::processEvents();
        canvas = view.findChild<CurveCanvas*>();
        send(QEvent::MouseButtonPress, Qt::LeftButton, 0.4);
        validations = 0;
    }

    /// One drag, each of its moves to another value and painted.
    void drag() {
        for (int move = 0; move < moves; ++move) {
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

void dragAPoint(benchmark::State& state) {
    OpenPane pane(state.range(0));
    while (state.KeepRunning())
        pane.drag();
    state.counters["validations"] =
        static_cast<double>(pane.validations) / static_cast<double>(state.iterations());
}

} // namespace

BENCHMARK(dragAPoint)
    ->Name("drag of 100 moves, profiles")
    ->Arg(1)
    ->Arg(40)
    ->Arg(400)
    ->Unit(benchmark::kMillisecond);
