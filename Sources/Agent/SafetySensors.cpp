#include "Agent/SafetySensors.h"

#include "Profiles/Controller.h"

namespace tervale {

std::optional<double> SafetySensors::hottest() {
    search.turn();
    std::optional<double> hottest;
    for (const TemperatureSensor& sensor : search.sensors()) {
        if (!Controller::safetyInputs.containsGroup(sensor.group))
            continue;
        const std::optional<double> reading = smc.temperature(sensor);
        if (reading && (!hottest || *reading > *hottest))
            hottest = reading;
    }
    return hottest;
}

} // namespace tervale
