#include "Simulation/SensorKeys.h"

#include "Base/Precondition.h"

#include <array>
#include <span>

namespace tervale {

namespace {

constexpr std::string_view digits =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

/// First the names that have a meaning of their own, then numbered ones.
std::string named(std::span<const std::string_view> names, std::string_view prefix,
                  std::size_t first, std::size_t position) {
    if (position < names.size())
        return std::string(names[position]);
    return std::string(prefix) + base62(first + position - names.size());
}

/// Real controllers number the cores' sensors in steps of four.
std::string numbered(std::string_view prefix, std::size_t first, std::size_t position) {
    return std::string(prefix) + base62(first + 4 * position);
}

std::string cpuKey(std::size_t position) {
    // Every fourth sensor is one of the efficiency cores.
    if (position % 4 == 3)
        return numbered("Te", 5, position / 4);
    return numbered("Tp", 1, position - (position + 1) / 4);
}

std::string powerKey(std::size_t position) {
    if (position == 2)
        return "TMVR";
    if (position == 3)
        return "TUVR";
    const std::size_t number = position < 2 ? position : position - 2;
    return std::string(number % 2 == 0 ? "TPD" : "TVD") + digits.at(number / 2);
}

} // namespace

std::string base62(std::size_t number) {
    precondition(number < digits.size() * digits.size(), "too many keys of one kind");
    return {digits[number / digits.size()], digits[number % digits.size()]};
}

std::string sensorKey(SensorGroup group, std::size_t position) {
    using namespace std::string_view_literals;
    static constexpr std::array ssd{"TH0x"sv, "TH0a"sv, "TH0b"sv};
    static constexpr std::array other{"TW0P"sv, "TaLP"sv, "TaRF"sv, "TB0T"sv,
                                      "TB1T"sv, "TB2T"sv, "TS0P"sv, "TIOP"sv};
    switch (group) {
    case SensorGroup::cpu:
        return cpuKey(position);
    case SensorGroup::gpu:
        return numbered("Tg", 5, position);
    case SensorGroup::memory:
        return numbered("Tm", 2, position);
    case SensorGroup::ssd:
        return named(ssd, "TH", digits.size(), position);
    case SensorGroup::power:
        return powerKey(position);
    case SensorGroup::other:
        return named(other, "TD", 0, position);
    }
    precondition(false, "a sensor group that does not exist was used");
    return {};
}

} // namespace tervale
