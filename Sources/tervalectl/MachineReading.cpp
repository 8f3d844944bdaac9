#include "tervalectl/MachineReading.h"

#include "Base/ClosedRange.h"
#include "Profiles/Profile.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace tervale {

namespace {

constexpr ClosedRange loadRange{0.0, 100.0};

std::optional<double> finite(double value) {
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace

std::string MachineReading::timeOfDay() const {
    // Time zones differ by whole minutes, so the second is the same in all of them.
    const double remainder = std::fmod(time, 60.0);
    const double second = remainder < 0 ? remainder + 60 : remainder;
    // As long as three numbers of any size, which is what the compiler reckons with.
    char text[48];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", static_cast<int>(minute / 60),
                  static_cast<int>(minute % 60), std::min(static_cast<int>(second), 59));
    return text;
}

void writeMembers(JSONWriter& json, const Fan& fan) {
    json.member("index", fan.index);
    json.optionalMember("actual", finite(fan.actual));
    json.optionalMember("target", finite(fan.target));
    json.optionalMember("min", finite(fan.min));
    json.optionalMember("max", finite(fan.max));
    json.member("manual", fan.manual);
}

void write(JSONWriter& json, const Fan& fan) {
    json.object([&] { writeMembers(json, fan); });
}

void write(JSONWriter& json, const TemperatureReadings& readings) {
    json.object([&] {
        for (const TemperatureInput input : allTemperatureInputs)
            json.optionalMember(input.title(), readings.at(input));
    });
}

void writeMembers(JSONWriter& json, const MachineReading& reading) {
    json.member("time", reading.time);
    json.member("minute", reading.minute);
    json.optionalMember("load", reading.load);
    json.member("temperatures", reading.temperatures);
    json.member("fans", reading.fans);
}

void write(JSONWriter& json, const MachineReading& reading) {
    json.object([&] { writeMembers(json, reading); });
}

Fan read(const JSONReader& json, Type<Fan>) {
    constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
    Fan fan;
    fan.index = json.member<std::int64_t>("index");
    fan.actual = json.optionalMember<double>("actual").value_or(unknown);
    fan.target = json.optionalMember<double>("target").value_or(unknown);
    fan.min = json.optionalMember<double>("min").value_or(unknown);
    fan.max = json.optionalMember<double>("max").value_or(unknown);
    fan.manual = json.member<bool>("manual");
    return fan;
}

TemperatureReadings read(const JSONReader& json, Type<TemperatureReadings>) {
    TemperatureReadings readings;
    for (const std::string_view name : json.names()) {
        const auto* input = std::ranges::find(allTemperatureInputs, name, &TemperatureInput::title);
        if (input == allTemperatureInputs.end())
            json.fail(DecodingError::Kind::dataCorrupted,
                      "There is no temperature '" + std::string(name) + "'.");
        if (const auto value = json.optionalMember<double>(name))
            readings.set(*input, *value);
    }
    return readings;
}

MachineReading read(const JSONReader& json, Type<MachineReading>) {
    MachineReading reading;
    reading.time = json.member<double>("time");
    reading.minute = json.member<std::int64_t>("minute");
    if (reading.minute < 0 || reading.minute >= Profile::minutesPerDay)
        json.fail(DecodingError::Kind::dataCorrupted, "The minute is not within the day.");
    reading.load = json.optionalMember<double>("load");
    if (reading.load && !loadRange.contains(*reading.load))
        json.fail(DecodingError::Kind::dataCorrupted, "The load is not within 0 to 100.");
    reading.temperatures = json.member<TemperatureReadings>("temperatures");
    reading.fans = json.optionalMember<std::vector<Fan>>("fans").value_or(std::vector<Fan>());
    return reading;
}

} // namespace tervale
