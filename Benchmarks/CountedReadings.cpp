#include "Counted.h"
#include "OpenProfilesPane.h"
#include "SMC/SMC.h"
#include "WideController.h"

#include <array>

namespace tervale {

namespace {

constexpr std::size_t sensorsOfAGroup = 30;

/// On a connection of its own, since a connection remembers the descriptions of keys.
void discover(std::size_t keys) {
    SimulatedMac mac(macOfKeys(keys));
    countedWork([&] { SMC(mac).temperatureSensors(); });
}

/// A minute of polls without a window: one full scan, and the polls between scans.
void poll(std::size_t groups) {
    WideController wide(groups, sensorsOfAGroup);
    InProcessNotificationCenter center;
    Bridge bridge(center);
    SimulatedClock clock;
    const AlwaysVisible visibility;
    const TimerFactory noTimer = [](auto&&...) { return nullptr; };
    Model model(wide.controller, bridge, clock, visibility, noTimer);
    countedWork([&] {
        for (int second = 0; second < 60; ++second) {
            wide.move();
            clock.advance(1);
            model.refresh();
        }
    });
}

constexpr std::array readingTasks{CountedTask{"discovery", 2000, discover},
                                  CountedTask{"poll", 6, poll}};

} // namespace

std::span<const CountedTask> countedReadings() {
    return readingTasks;
}

} // namespace tervale
