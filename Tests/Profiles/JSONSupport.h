#pragma once

#include "JSON/Decoded.h"
#include "JSON/JSON.h"
#include "Profiles/Bridge.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace tervale::test {

/// Calls `function` with the `std::type_identity` of the type that the fixtures call `name`.
template <class Function>
auto withType(const std::string& name, Function&& function) {
    if (name == "Action")
        return function(std::type_identity<Action>{});
    if (name == "Curve")
        return function(std::type_identity<Curve>{});
    if (name == "CurvePoint")
        return function(std::type_identity<CurvePoint>{});
    if (name == "TemperatureInput")
        return function(std::type_identity<TemperatureInput>{});
    if (name == "Window")
        return function(std::type_identity<Window>{});
    if (name == "ProfileKind")
        return function(std::type_identity<ProfileKind>{});
    if (name == "Profile")
        return function(std::type_identity<Profile>{});
    if (name == "[Profile]")
        return function(std::type_identity<std::vector<Profile>>{});
    if (name == "BridgeCommand")
        return function(std::type_identity<BridgeCommand>{});
    if (name == "BridgeState")
        return function(std::type_identity<BridgeState>{});
    throw std::runtime_error("unknown type " + name);
}

/// The cases of a file of JSON Lines.
inline std::vector<nlohmann::json> fixtures(const std::string& file) {
    std::ifstream stream(std::string(TERVALE_FIXTURES) + "/" + file);
    std::vector<nlohmann::json> cases;
    for (std::string line; std::getline(stream, line);)
        cases.push_back(nlohmann::json::parse(line));
    if (cases.empty())
        throw std::runtime_error("no cases in " + file);
    return cases;
}

/// The input of a case, which is a text or a list of bytes.
inline std::string inputOf(const nlohmann::json& fixture) {
    if (fixture.contains("text"))
        return fixture["text"];
    std::string bytes;
    for (const int byte : fixture["bytes"])
        bytes += static_cast<char>(byte);
    return bytes;
}

} // namespace tervale::test
