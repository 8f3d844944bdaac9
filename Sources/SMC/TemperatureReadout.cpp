#include "Base/Precondition.h"
#include "SMC/SMC.h"

namespace tervale {

std::vector<TemperatureSensor> SMC::temperatureSensors() {
    const std::int64_t count = keyCount();
    precondition(count >= 0, "the controller counts a negative number of keys");
    std::vector<TemperatureSensor> sensors;
    for (std::int64_t index = 0; index < count; ++index) {
        try {
            const std::string name = key(index);
            const auto group = SensorGroup::of(name);
            if (!group || info(name).type != "flt ")
                continue;
            if (TemperatureSensor::plausible.contains(read(name)))
                sensors.push_back({name, *group});
        } catch (const SMCError&) {
            // One key that fails is one sensor less.
        }
    }
    return sensors;
}

std::optional<double> SMC::temperature(const TemperatureSensor& sensor) {
    try {
        const double value = read(sensor.key);
        return TemperatureSensor::plausible.contains(value) ? std::optional(value) : std::nullopt;
    } catch (const SMCError&) {
        // The sensor is tried again next time.
        return std::nullopt;
    }
}

std::unordered_map<TemperatureSensor, double>
SMC::temperatures(std::span<const TemperatureSensor> sensors) {
    std::unordered_map<TemperatureSensor, double> readings;
    for (const TemperatureSensor& sensor : sensors) {
        if (const auto value = temperature(sensor))
            readings[sensor] = *value;
    }
    return readings;
}

} // namespace tervale
