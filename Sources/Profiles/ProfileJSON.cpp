#include "Base/Overloaded.h"
#include "Profiles/JSONCoding.h"

namespace tervale {

void write(JSONWriter& json, const UUID& id) {
    json.string(id.text());
}

UUID read(const JSONReader& json, Type<UUID>) {
    const std::optional<UUID> id = UUID::parse(json.text());
    if (!id)
        json.fail(DecodingError::Kind::dataCorrupted, "The string is no UUID.");
    return *id;
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

void write(JSONWriter& json, const CurvePoint& point) {
    json.object([&] {
        json.member("x", point.x);
        json.member("speed", point.speed);
    });
}

CurvePoint read(const JSONReader& json, Type<CurvePoint>) {
    return {json.member<double>("x"), json.member<double>("speed")};
}

void write(JSONWriter& json, const Curve& curve) {
    json.object([&] { json.member("points", curve.points); });
}

Curve read(const JSONReader& json, Type<Curve>) {
    return {json.member<std::vector<CurvePoint>>("points")};
}

void write(JSONWriter& json, const Action& action) {
    std::visit(overloaded{
                   [&](action::Automatic) { json.oneOf("automatic"); },
                   [&](const action::Fixed& fixed) { json.oneOf("fixed", fixed.speed); },
                   [&](const action::Profile& profile) { json.oneOf("profile", profile.id); },
               },
               action);
}

Action read(const JSONReader& json, Type<Action>) {
    using Payload = const JSONReader&;
    return json.oneOf<Action>({
        {"automatic", [](Payload) -> Action { return action::Automatic{}; }},
        {"fixed",
         [](Payload payload) -> Action { return action::Fixed{payload.member<double>("_0")}; }},
        {"profile",
         [](Payload payload) -> Action { return action::Profile{payload.member<UUID>("_0")}; }},
    });
}

void write(JSONWriter& json, const Window& window) {
    json.object([&] {
        json.member("start", window.start);
        json.member("end", window.end);
        json.member("action", window.action);
    });
}

Window read(const JSONReader& json, Type<Window>) {
    return {json.member<std::int64_t>("start"), json.member<std::int64_t>("end"),
            json.member<Action>("action")};
}

void write(JSONWriter& json, const ProfileKind& kind) {
    std::visit(
        overloaded{
            [&](const kind::Temperature& temperature) {
                json.oneOf("temperature", temperature.input, temperature.curve);
            },
            [&](const kind::Load& load) { json.oneOf("load", load.curve); },
            [&](const kind::Schedule& schedule) { json.oneOf("schedule", schedule.windows); },
        },
        kind);
}

ProfileKind read(const JSONReader& json, Type<ProfileKind>) {
    using Payload = const JSONReader&;
    return json.oneOf<ProfileKind>({
        {"temperature",
         [](Payload payload) -> ProfileKind {
             return kind::Temperature{payload.member<TemperatureInput>("_0"),
                                      payload.member<Curve>("_1")};
         }},
        {"load",
         [](Payload payload) -> ProfileKind { return kind::Load{payload.member<Curve>("_0")}; }},
        {"schedule",
         [](Payload payload) -> ProfileKind {
             return kind::Schedule{payload.member<std::vector<Window>>("_0")};
         }},
    });
}

void write(JSONWriter& json, const Profile& profile) {
    json.object([&] {
        json.member("id", profile.id);
        json.member("name", profile.name);
        json.member("kind", profile.kind);
    });
}

Profile read(const JSONReader& json, Type<Profile>) {
    return {json.member<UUID>("id"), json.member<std::string>("name"),
            json.member<ProfileKind>("kind")};
}

} // namespace tervale
