#include "Profiles/Profile.h"

#include "Base/Overloaded.h"
#include "JSON/JSONReader.h"
#include "JSON/JSONWriter.h"

#include <algorithm>

namespace tervale {

bool Window::covers(std::int64_t minute) const {
    if (start < end)
        return start <= minute && minute < end;
    return minute >= start || minute < end;
}

const Profile* findProfile(std::span<const Profile> profiles, const UUID& id) {
    const auto found = std::ranges::find(profiles, id, &Profile::id);
    return found == profiles.end() ? nullptr : &*found;
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
