#include "tervalectl/MachineCommands.h"

#include "Profiles/DisplayText.h"
#include "SMC/SMC.h"
#include "tervalectl/Formatting.h"
#include "tervalectl/MachineReading.h"

#include <QString>

#include <algorithm>

namespace tervale {

namespace {

struct Reading {
    TemperatureSensor sensor;
    /// Nothing if it cannot be read now.
    std::optional<double> celsius;
};

bool matches(const TemperatureSensor& sensor, const ctl::Sensors& command) {
    const auto contains = [&](const std::string& text) {
        return QString::fromStdString(text).contains(QString::fromStdString(command.filter),
                                                     Qt::CaseInsensitive);
    };
    return (!command.group || *command.group == sensor.group) &&
           (contains(sensor.name()) || contains(sensor.key));
}

/// By group and key.
std::vector<Reading> readings(SMC& smc, const ctl::Sensors& command) {
    std::vector<TemperatureSensor> wanted = smc.temperatureSensors();
    std::erase_if(wanted,
                  [&](const TemperatureSensor& sensor) { return !matches(sensor, command); });
    std::ranges::sort(wanted, {}, [](const TemperatureSensor& sensor) {
        return std::pair(SensorGroup::Case(sensor.group), sensor.key);
    });
    std::vector<Reading> found;
    found.reserve(wanted.size());
    for (const TemperatureSensor& sensor : wanted)
        found.push_back({sensor, smc.temperature(sensor)});
    return found;
}

void write(JSONWriter& json, const Reading& reading) {
    json.object([&] {
        json.member("key", reading.sensor.key);
        json.member("group", std::string(reading.sensor.group.rawValue()));
        json.member("name", reading.sensor.name());
        json.optionalMember("celsius", reading.celsius);
    });
}

struct FanAndModeKey {
    Fan fan;
    /// Controllers differ in its spelling.
    std::string modeKey;
};

void write(JSONWriter& json, const FanAndModeKey& found) {
    json.object([&] {
        writeMembers(json, found.fan);
        json.member("modeKey", found.modeKey);
    });
}

template <class Value>
void printArray(const std::vector<Value>& values, Context& context) {
    JSONWriter json;
    json.array(values);
    printJSON(context.out, json.text);
}

} // namespace

ExitStatus perform(const ctl::Fans&, Context& context) {
    const Machine machine = context.makeMachine();
    SMC smc(*machine.registry);
    const std::vector<Fan> fans = smc.fans();
    if (context.json) {
        std::vector<FanAndModeKey> found;
        found.reserve(fans.size());
        for (const Fan& fan : fans)
            found.push_back({fan, smc.modeKey(fan.index)});
        printArray(found, context);
        return ExitStatus::done;
    }
    constexpr auto right = Table::Alignment::right;
    Table table({{"FAN"}, {"SPEED", right}, {"TARGET", right}, {"RANGE", right}, {"MODE"}});
    for (const Fan& fan : fans)
        table.add({displayText::fan(fan.index), speedText(fan.actual), speedText(fan.target),
                   rangeText(fan), fan.manual ? "manual" : "automatic"});
    table.print(context.out);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::Sensors& command, Context& context) {
    const Machine machine = context.makeMachine();
    SMC smc(*machine.registry);
    const std::vector<Reading> found = readings(smc, command);
    if (context.json) {
        printArray(found, context);
        return ExitStatus::done;
    }
    Table table({{"GROUP"}, {"SENSOR"}, {"TEMPERATURE", Table::Alignment::right}});
    for (const Reading& reading : found)
        table.add({std::string(reading.sensor.group.title()), reading.sensor.name(),
                   reading.celsius ? displayText::celsius(*reading.celsius) : "–"});
    table.print(context.out);
    return ExitStatus::done;
}

} // namespace tervale
