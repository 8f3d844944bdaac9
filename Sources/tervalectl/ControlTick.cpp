#include "tervalectl/ControlTick.h"

#include "Profiles/Profile.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tervale {

namespace {

std::optional<double> finite(double value) {
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace

std::string ControlTick::timeOfDay() const {
    // Time zones differ by whole minutes, so the second is the same in all of them.
    const double remainder = std::fmod(time, 60.0);
    const double second = remainder < 0 ? remainder + 60 : remainder;
    // As long as three numbers of any size, which is what the compiler reckons with.
    char text[48];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", static_cast<int>(minute / 60),
                  static_cast<int>(minute % 60), std::min(static_cast<int>(second), 59));
    return text;
}

void write(JSONWriter& json, const Fan& fan) {
    json.object([&] {
        json.member("index", fan.index);
        json.optionalMember("actual", finite(fan.actual));
        json.optionalMember("target", finite(fan.target));
        json.optionalMember("min", finite(fan.min));
        json.optionalMember("max", finite(fan.max));
        json.member("manual", fan.manual);
    });
}

void write(JSONWriter& json, const TemperatureReadings& readings) {
    json.object([&] {
        for (std::size_t position = 0; position < temperatureInputCount; ++position) {
            const TemperatureInput input = temperatureInputAt(position);
            json.optionalMember(input.title(), readings.at(input));
        }
    });
}

void write(JSONWriter& json, const ControlTick& tick) {
    json.object([&] {
        json.member("time", tick.time);
        json.member("minute", tick.minute);
        json.optionalMember("load", tick.load);
        json.member("temperatures", tick.temperatures);
        json.member("fans", tick.fans);
    });
}

TemperatureReadings read(const JSONReader& json, Type<TemperatureReadings>) {
    TemperatureReadings readings;
    for (std::size_t position = 0; position < temperatureInputCount; ++position) {
        const TemperatureInput input = temperatureInputAt(position);
        if (const auto value = json.optionalMember<double>(input.title()))
            readings.set(input, *value);
    }
    return readings;
}

ControlTick read(const JSONReader& json, Type<ControlTick>) {
    ControlTick tick;
    tick.time = json.member<double>("time");
    tick.minute = json.member<std::int64_t>("minute");
    if (tick.minute < 0 || tick.minute >= Profile::minutesPerDay)
        json.fail(DecodingError::Kind::dataCorrupted, "The minute is not within the day.");
    tick.load = json.optionalMember<double>("load");
    tick.temperatures = json.member<TemperatureReadings>("temperatures");
    return tick;
}

} // namespace tervale
