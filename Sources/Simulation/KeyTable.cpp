#include "Simulation/KeyTable.h"

#include "Base/Precondition.h"
#include "SMC/SMCCodec.h"
#include "SMC/SMCResult.h"
#include "Simulation/SensorKeys.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <string_view>
#include <utility>

namespace tervale {

namespace {

using keySource::FanValue;

std::vector<std::byte> bigEndian(std::uint32_t value, std::size_t size) {
    std::vector<std::byte> bytes(size);
    for (std::size_t i = size; i > 0; --i, value >>= 8U)
        bytes[i - 1] = static_cast<std::byte>(value & 0xFFU);
    return bytes;
}

SimulatedKey constant(std::string name, std::string_view type, double value) {
    std::vector<std::byte> bytes = keyBytes(type, value);
    const auto size = static_cast<std::uint32_t>(bytes.size());
    return {.name = std::move(name),
            .type = std::string(type),
            .size = size,
            .source = keySource::Constant{std::move(bytes)}};
}

SimulatedKey opaque(std::string name, std::string_view type, std::uint32_t size) {
    return {.name = std::move(name),
            .type = std::string(type),
            .size = size,
            .source = keySource::Constant{std::vector<std::byte>(size, std::byte{0x5A})}};
}

SimulatedKey refusing(SimulatedKey key, std::uint8_t describeResult, std::uint8_t readResult) {
    key.describeResult = describeResult;
    key.readResult = readResult;
    return key;
}

} // namespace

std::vector<std::byte> keyBytes(std::string_view type, double value) {
    if (type == "flt ") {
        auto bits = std::bit_cast<std::uint32_t>(static_cast<float>(value));
        std::vector<std::byte> bytes = bigEndian(bits, 4);
        std::reverse(bytes.begin(), bytes.end());
        return bytes;
    }
    const auto whole = static_cast<std::uint32_t>(type == "fpe2" ? value * 4 : value);
    if (type == "fpe2" || type == "ui16")
        return bigEndian(whole, 2);
    if (type == "ui32")
        return bigEndian(whole, 4);
    precondition(type == "ui8 " || type == "flag", "a simulated key has an unknown type");
    return bigEndian(whole, 1);
}

KeyTable::KeyTable(std::size_t fans, ModeSpelling spelling, const SensorBank& sensors,
                   std::size_t fillers, std::uint64_t seed) {
    RandomSource random(seed);
    add({.name = "#KEY", .type = "ui32", .size = 4, .source = keySource::KeyCount{}});
    addFans(fans, spelling);
    for (std::size_t i = 0; i < sensors.size(); ++i)
        add({.name = sensors.key(i), .type = "flt ", .size = 4, .source = keySource::Sensor{i}});
    addDecoys();
    addFillers(fillers, random);

    std::sort(keys.begin(), keys.end(),
              [](const auto& first, const auto& second) { return first.name < second.name; });
    positions.clear();
    for (std::size_t i = 0; i < keys.size(); ++i)
        positions.emplace(SMCCodec::fourCC(keys[i].name), i);
}

const SimulatedKey* KeyTable::find(std::uint32_t code) const {
    const auto found = positions.find(code);
    return found == positions.end() ? nullptr : &keys[found->second];
}

void KeyTable::add(SimulatedKey key) {
    const bool isNew = positions.emplace(SMCCodec::fourCC(key.name), keys.size()).second;
    precondition(isNew, "two simulated keys have the same name");
    keys.push_back(std::move(key));
}

void KeyTable::addFans(std::size_t fans, ModeSpelling spelling) {
    precondition(fans <= 10, "more fans were asked for than four-character keys can name");
    add(constant("FNum", "ui8 ", static_cast<double>(fans)));
    add({.name = "Ftst", .type = "ui8 ", .size = 1, .source = keySource::Unlock{}});
    const char* const mode = spelling == ModeSpelling::lowerCase ? "md" : "Md";
    for (std::size_t fan = 0; fan < fans; ++fan) {
        const std::string prefix = "F" + std::to_string(fan);
        const auto addValue = [&](const char* suffix, FanValue::Register value) {
            const bool isMode = value == FanValue::mode;
            add({.name = prefix + suffix,
                 .type = isMode ? "ui8 " : "flt ",
                 .size = isMode ? 1U : 4U,
                 .source = FanValue{fan, value}});
        };
        addValue("Ac", FanValue::actual);
        addValue("Tg", FanValue::target);
        addValue("Mn", FanValue::min);
        addValue("Mx", FanValue::max);
        addValue(mode, FanValue::mode);
    }
}

void KeyTable::addDecoys() {
    // Temperatures that are excluded by name.
    add(constant("Ta00", "flt ", 31.5));
    add(constant("Ta04", "flt ", 33.25));
    add(constant("Ta0P", "flt ", 40.0));
    add(constant("Ta0x", "flt ", 38.75));
    // Sensors that are not fitted.
    add(constant("TCMb", "flt ", 0.0));
    add(constant("TCMz", "flt ", -127.0));
    add(constant("TVA0", "flt ", 200.0));
    add(constant("TVMD", "flt ", 4.875));
    add(constant("TVS0", "flt ", 130.125));
    add(constant("TN0n", "flt ", std::numeric_limits<double>::quiet_NaN()));
    add(constant("Tg00", "flt ", -60.0));
    // Settings and counters under names of temperatures.
    add(constant("Tp0F", "fpe2", 45.5));
    add(constant("Tm0C", "ui8 ", 42));
    add(constant("TG0V", "flag", 1));
    add(constant("TCHP", "ui16", 55));
    add(constant("TRDX", "ui32", 61));
    add(opaque("TZ0C", "sp78", 2));
    add(opaque("Tf0S", "ioft", 8));
    // Listed, but not to be had.
    add(refusing(constant("Tp0E", "flt ", 50.0), smcResult::unknownKey, smcResult::unknownKey));
    add(refusing(constant("TW0T", "flt ", 50.0), 0, smcResult::notReadable));
    add(opaque("TzBg", "{rec", 48));
    add(opaque("MSHP", "ch8*", 40));
}

void KeyTable::addFillers(std::size_t count, RandomSource& random) {
    static constexpr std::string_view families = "ABCDGHIKLMNPRSVWabcmpz";
    static constexpr std::array<std::string_view, 8> types{"flt ", "ui8 ", "ui16", "ui32",
                                                           "flag", "fpe2", "hex_", "si16"};
    precondition(count <= 10000, "more filler keys were asked for than there are names");
    for (std::size_t i = 0; i < count; ++i) {
        const std::string name =
            std::string{families[i % families.size()], "CDPV"[i / 62 % 4]} + base62(i % 3844);
        const std::string_view type = types.at(random.below(types.size()));
        if (type == "hex_" || type == "si16")
            add(opaque(name, type, type == "si16" ? 2 : 16));
        else
            add(constant(name, type, type == "flag" ? 1 : random.between(0, 100)));
    }
}

} // namespace tervale
