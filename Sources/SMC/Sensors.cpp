#include "SMC/Sensors.h"

#include <utility>

namespace tervale {

namespace {

struct Texts {
    std::string_view rawValue;
    std::string_view title;
};

constexpr std::array<Texts, 6> texts{{{"cpu", "CPU"},
                                      {"gpu", "GPU"},
                                      {"memory", "Memory"},
                                      {"ssd", "SSD"},
                                      {"power", "Power"},
                                      {"other", "Other"}}};
static_assert(texts.size() == SensorGroup::allCases.size(), "a group has no name");

// The first prefix that begins a key decides.
constexpr std::array<std::pair<std::string_view, SensorGroup::Case>, 9> prefixes{
    {{"Tp", SensorGroup::cpu},
     {"Te", SensorGroup::cpu},
     {"Tg", SensorGroup::gpu},
     {"Tm", SensorGroup::memory},
     {"TH", SensorGroup::ssd},
     {"TPD", SensorGroup::power},
     {"TVD", SensorGroup::power},
     {"TMVR", SensorGroup::power},
     {"TUVR", SensorGroup::power}}};

constexpr std::array<std::pair<std::string_view, std::string_view>, 2> knownNames{
    {{"TH0x", "SSD"}, {"TW0P", "Wi-Fi"}}};

} // namespace

std::optional<SensorGroup> SensorGroup::of(std::string_view key) {
    if (!key.starts_with('T') || key.starts_with("Ta0"))
        return std::nullopt;
    for (const auto& [prefix, group] : prefixes) {
        if (key.starts_with(prefix))
            return SensorGroup(group);
    }
    return SensorGroup(other);
}

std::optional<SensorGroup> SensorGroup::fromRawValue(std::string_view rawValue) {
    for (const SensorGroup group : allCases) {
        if (group.rawValue() == rawValue)
            return group;
    }
    return std::nullopt;
}

std::string_view SensorGroup::rawValue() const {
    return texts[value].rawValue;
}

std::string_view SensorGroup::title() const {
    return texts[value].title;
}

std::string TemperatureSensor::name() const {
    for (const auto& [knownKey, knownName] : knownNames) {
        if (key == knownKey)
            return std::string(knownName);
    }
    return std::string(group.title()) + " " + key;
}

} // namespace tervale

std::size_t std::hash<tervale::SensorGroup>::operator()(tervale::SensorGroup group) const noexcept {
    return std::hash<std::string_view>()(group.rawValue());
}

std::size_t std::hash<tervale::TemperatureSensor>::operator()(
    const tervale::TemperatureSensor& sensor) const noexcept {
    return std::hash<std::string>()(sensor.key) * 31 +
           std::hash<tervale::SensorGroup>()(sensor.group);
}
