#include "Profiles/TemperatureInput.h"

#include "JSON/JSONReader.h"
#include "JSON/JSONWriter.h"
#include "Profiles/CombinedHash.h"

#include <optional>

namespace tervale {

std::string TemperatureInput::title() const {
    return std::string(group.title()) + (average ? " average" : " hottest");
}

void write(JSONWriter& json, SensorGroup group) {
    json.string(group.rawValue());
}

SensorGroup read(const JSONReader& json, Type<SensorGroup>) {
    const std::optional<SensorGroup> group = SensorGroup::fromRawValue(json.text());
    if (!group)
        json.fail(DecodingError::Kind::dataCorrupted, "The string names no sensor group.");
    return *group;
}

void write(JSONWriter& json, const TemperatureInput& input) {
    json.object([&] {
        json.member("group", input.group);
        json.member("average", input.average);
    });
}

TemperatureInput read(const JSONReader& json, Type<TemperatureInput>) {
    return {json.member<SensorGroup>("group"), json.member<bool>("average")};
}

} // namespace tervale

std::size_t std::hash<tervale::TemperatureInput>::operator()(
    const tervale::TemperatureInput& input) const noexcept {
    return tervale::combinedHash(std::hash<tervale::SensorGroup>{}(input.group),
                                 std::hash<bool>{}(input.average));
}
