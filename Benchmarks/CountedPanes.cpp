#include "Counted.h"
#include "OpenProfilesPane.h"
#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Gauges/GaugeAnimation.h"
#include "TervaleWindow/Overview/OverviewView.h"
#include "TervaleWindow/Sensors/SensorsView.h"
#include "TervaleWindow/Shell/SystemAppearance.h"
#include "WideController.h"

#include <QKeyEvent>

#include <array>
#include <memory>

namespace tervale {

namespace {

/// The frames of a second that show something new, each at its refresh. The animations' own timers,
/// which go by real time, never fire, since only posted events are handled.
void passASecond(const QWidget& pane) {
    const auto animations = pane.findChildren<GaugeAnimation*>();
    for (int refresh = 1; refresh <= 60; ++refresh) {
        const double now = refresh * 1000.0 / 60;
        for (GaugeAnimation* animation : animations) {
            if (animation->isRunning() && animation->nextFrame() <= now)
                animation->advanceTo(now);
        }
        QCoreApplication::sendPostedEvents();
    }
}

/// What a pane is opened on. Nothing happens in it by itself.
struct Room {
    explicit Room(IORegistry& registry) : registry(registry) {
        useSystemAppearance(*qobject_cast<QApplication*>(QCoreApplication::instance()));
    }

    template <class Pane, class... Arguments>
    std::unique_ptr<Pane> open(Arguments&... arguments) {
        auto pane = std::make_unique<Pane>(arguments...);
        pane->resize(790, 680);
        pane->show();
        QCoreApplication::processEvents();
        return pane;
    }

    IORegistry& registry;
    InProcessNotificationCenter center;
    Bridge bridge{center};
    SimulatedClock clock;
    AlwaysVisible visibility;
    Model model{registry, bridge, clock, visibility, [](auto&&...) { return nullptr; }};
};

/// A second each, in which the gauges move and are painted.
void polls(std::size_t count) {
    WideController wide(6, 30);
    Room room(wide.controller);
    const auto pane = room.open<OverviewView>(room.model, room.bridge);
    countedWork([&] {
        for (std::size_t second = 0; second < count; ++second) {
            wide.move();
            room.clock.advance(1);
            room.model.refresh();
            passASecond(*pane);
        }
    });
}

void drag(std::size_t profiles) {
    SimulatedMac mac(macOfKeys(200));
    const Room room(mac);
    OpenProfilesPane pane(profiles);
    countedWork([&] { pane.drag(); });
}

void press(QWidget& widget, Qt::Key key, const QString& text) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&widget, &down);
    QCoreApplication::processEvents();
}

/// A filter typed letter by letter, and cleared.
void filter(std::size_t sensors) {
    WideController wide(4, sensors / 4);
    Room room(wide.controller);
    const auto pane = room.open<SensorsView>(room.model);
    auto& field = *pane->findChild<SearchField*>();
    countedWork([&] {
        press(field, Qt::Key_C, "c");
        press(field, Qt::Key_P, "p");
        press(field, Qt::Key_U, "u");
        press(field, Qt::Key_Escape, {});
    });
}

/// Opened, and read and shown anew once.
void sensorsPane(std::size_t sensors) {
    WideController wide(4, sensors / 4);
    Room room(wide.controller);
    countedWork([&] {
        const auto pane = room.open<SensorsView>(room.model);
        wide.move();
        room.model.readAllSensors();
        QCoreApplication::processEvents();
    });
}

void profilesPane(std::size_t profiles) {
    SimulatedMac mac(macOfKeys(200));
    Room room(mac);
    room.bridge.publish(stateOfProfiles(profiles));
    countedWork([&] { room.open<ProfilesView>(room.model, room.bridge); });
}

constexpr std::array paneTasks{
    CountedTask{"polls", 60, polls},
    CountedTask{"drag", 40, drag},
    CountedTask{"filter", 1000, filter},
    CountedTask{"sensors-pane", 1000, sensorsPane},
    CountedTask{"profiles-pane", 40, profilesPane},
};

} // namespace

std::span<const CountedTask> countedPanes() {
    return paneTasks;
}

} // namespace tervale
