#pragma once

#include "JSON/JSON.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tervale {

/// A structure with a required member, an optional one and a list.
struct Sample {
    double number = 0;
    std::optional<std::string> note{};
    std::vector<Sample> parts{};

    bool operator==(const Sample&) const = default;
};

inline void write(JSONWriter& json, const Sample& sample) {
    json.object([&] {
        json.member("number", sample.number);
        json.optionalMember("note", sample.note);
        if (!sample.parts.empty())
            json.member("parts", sample.parts);
    });
}

inline Sample read(const JSONReader& json, Type<Sample>) {
    return {json.member<double>("number"), json.optionalMember<std::string>("note"),
            json.optionalMember<std::vector<Sample>>("parts").value_or(std::vector<Sample>())};
}

struct Nothing {
    bool operator==(const Nothing&) const = default;
};
/// One of several: a sample, or nothing.
using Choice = std::variant<Nothing, Sample>;

inline Choice read(const JSONReader& json, Type<Choice>) {
    using Payload = const JSONReader&;
    return json.oneOf<Choice>({
        {"nothing", [](Payload) -> Choice { return Nothing{}; }},
        {"sample", [](Payload payload) -> Choice { return payload.member<Sample>("_0"); }},
    });
}

} // namespace tervale
