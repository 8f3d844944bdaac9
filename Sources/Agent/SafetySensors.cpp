#include "Agent/SafetySensors.h"

#include "Profiles/Controller.h"

namespace tervale {

namespace {

/// A controller that counts more keys than this is not to be believed.
constexpr double mostKeys = 65536;

} // namespace

std::vector<TemperatureSensor> findSensors(SMC& smc) {
    try {
        // What is no count of keys would stop the process, or keep it busy for ever.
        const double keys = smc.read("#KEY");
        if (keys > -1 && keys <= mostKeys)
            return smc.temperatureSensors();
    } catch (const SMCError&) {
        // Without a list of keys there are no sensors yet.
    }
    return {};
}

std::optional<double> SafetySensors::hottest() {
    if (sensors.empty()) {
        sensors = findSensors(smc);
        std::erase_if(sensors, [](const TemperatureSensor& sensor) {
            return !Controller::safetyInputs.containsGroup(sensor.group);
        });
    }
    std::optional<double> hottest;
    for (const auto& [sensor, reading] : smc.temperatures(sensors))
        if (!hottest || reading > *hottest)
            hottest = reading;
    return hottest;
}

} // namespace tervale
