#include "Agent/StarterProfiles.h"

#include "Base/Precondition.h"

#include <cstdint>
#include <string_view>

namespace tervale {

namespace {

UUID fixedId(std::string_view text) {
    const auto id = UUID::parse(text);
    precondition(id.has_value(), "the id of a starter profile is none");
    return *id;
}

} // namespace

std::vector<Profile> starterProfiles() {
    const Curve quietCurve{{{45, 0}, {65, 0.15}, {80, 0.45}, {92, 1}}};
    const Curve temperatureCurve{{{40, 0.05}, {55, 0.25}, {70, 0.55}, {85, 1}}};
    const Curve loadCurve{{{10, 0.05}, {50, 0.35}, {90, 0.9}}};
    const UUID quiet = fixedId("6F1D2C50-3B7A-4E0E-9C55-0D5A3A9B1E01");
    constexpr std::int64_t hour = 60;
    const std::vector<Window> night{{22 * hour, 7 * hour, action::Profile{quiet}},
                                    {7 * hour, 9 * hour, action::Automatic{}},
                                    {9 * hour, 12 * hour, action::Fixed{0.4}}};
    return {
        {quiet, "Quiet",
         kind::Temperature{TemperatureInput::averageOf(SensorGroup::cpu), quietCurve}},
        {fixedId("6F1D2C50-3B7A-4E0E-9C55-0D5A3A9B1E02"), "Temperature",
         kind::Temperature{TemperatureInput::hottestOf(SensorGroup::cpu), temperatureCurve}},
        {fixedId("6F1D2C50-3B7A-4E0E-9C55-0D5A3A9B1E03"), "Load", kind::Load{loadCurve}},
        {fixedId("6F1D2C50-3B7A-4E0E-9C55-0D5A3A9B1E04"), "Night", kind::Schedule{night}},
    };
}

} // namespace tervale
