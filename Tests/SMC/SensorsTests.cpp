#include "SMC/Sensors.h"

#include <gtest/gtest.h>

#include <random>
#include <unordered_map>
#include <unordered_set>

using namespace tervale;

namespace {

using Group = std::optional<SensorGroup>;

bool begins(const std::string& key, const std::string& prefix) {
    return key.compare(0, prefix.size(), prefix) == 0;
}

/// The classification once more, character by character.
Group expectedGroup(const std::string& key) {
    const auto at = [&key](std::size_t i) { return i < key.size() ? key[i] : '\0'; };
    if (at(0) != 'T')
        return std::nullopt;
    switch (at(1)) {
    case 'a':
        return at(2) == '0' ? Group() : SensorGroup::other;
    case 'p':
    case 'e':
        return SensorGroup::cpu;
    case 'g':
        return SensorGroup::gpu;
    case 'm':
        return SensorGroup::memory;
    case 'H':
        return SensorGroup::ssd;
    case 'P':
    case 'V':
        return at(2) == 'D' ? SensorGroup::power : SensorGroup::other;
    case 'M':
    case 'U':
        return at(2) == 'V' && at(3) == 'R' ? SensorGroup::power : SensorGroup::other;
    default:
        return SensorGroup::other;
    }
}

} // namespace

TEST(SensorGroup, ListsItsCasesInDeclarationOrder) {
    const std::array<SensorGroup, 6> expected{SensorGroup::cpu,    SensorGroup::gpu,
                                              SensorGroup::memory, SensorGroup::ssd,
                                              SensorGroup::power,  SensorGroup::other};
    EXPECT_EQ(SensorGroup::allCases, expected);
}

TEST(SensorGroup, HasARawValueAndATitle) {
    std::string rawValues;
    std::string titles;
    for (const SensorGroup group : SensorGroup::allCases) {
        rawValues += std::string(group.rawValue()) + " ";
        titles += std::string(group.title()) + " ";
    }
    EXPECT_EQ(rawValues, "cpu gpu memory ssd power other ");
    EXPECT_EQ(titles, "CPU GPU Memory SSD Power Other ");
}

TEST(SensorGroup, IsMadeFromItsRawValueOnly) {
    for (const SensorGroup group : SensorGroup::allCases)
        EXPECT_EQ(SensorGroup::fromRawValue(group.rawValue()), Group(group));
    for (const char* text : {"CPU", "Cpu", "", "cpu ", " cpu", "cp", "fan", "SSD"})
        EXPECT_EQ(SensorGroup::fromRawValue(text), std::nullopt) << text;
}

TEST(SensorGroup, ClassifiesKeysByThePrefixThatMatchesFirst) {
    for (const char* key : {"Tp01", "Tp09", "Te05", "Tp", "Te", "Tpd", "TpD0"})
        EXPECT_EQ(SensorGroup::of(key), Group(SensorGroup::cpu)) << key;
    for (const char* key : {"Tg0f", "Tg"})
        EXPECT_EQ(SensorGroup::of(key), Group(SensorGroup::gpu)) << key;
    for (const char* key : {"Tm02", "Tm", "TmVR"})
        EXPECT_EQ(SensorGroup::of(key), Group(SensorGroup::memory)) << key;
    for (const char* key : {"TH0x", "TH0a", "TH"})
        EXPECT_EQ(SensorGroup::of(key), Group(SensorGroup::ssd)) << key;
    for (const char* key : {"TPD0", "TPD", "TVD0", "TVD", "TMVR", "TUVR", "TMVR0"})
        EXPECT_EQ(SensorGroup::of(key), Group(SensorGroup::power)) << key;
}

TEST(SensorGroup, CallsEveryOtherTemperatureOther) {
    for (const char* key : {"T", "Tz", "TW0P", "TaLP", "Ta", "Th0x", "TP0D", "TPd0", "TVd0", "TMV0",
                            "TUVr", "TG0f", "TE05", "T\xC3\xA4"})
        EXPECT_EQ(SensorGroup::of(key), Group(SensorGroup::other)) << key;
}

TEST(SensorGroup, LeavesOutKeysThatAreNoTemperatureToShow) {
    for (const char* key : {"", "Fan0", "tp01", "F0Ac", "#KEY", " Tp0", "Ta0P", "Ta0", "Ta09", "?"})
        EXPECT_EQ(SensorGroup::of(key), std::nullopt) << key;
    EXPECT_EQ(SensorGroup::of(std::string_view("\0Tp0", 4)), std::nullopt);
}

TEST(SensorGroup, ClassifiesRandomKeysAsASecondFormulationDoes) {
    std::mt19937 random(20);
    // Few letters, so that every prefix turns up often.
    const std::string letters = "TaegpmHPVDMURW0td";
    std::uniform_int_distribution<std::size_t> letter(0, letters.size() - 1);
    std::uniform_int_distribution<int> length(0, 4);
    int classified = 0;
    for (int round = 0; round < 50000; ++round) {
        std::string key = round % 8 == 0 ? "" : "T";
        for (int i = length(random); i > 0; --i)
            key.push_back(letters[letter(random)]);
        EXPECT_EQ(SensorGroup::of(key), expectedGroup(key)) << key;
        classified += begins(key, "TMVR") || begins(key, "TUVR") ? 1 : 0;
    }
    EXPECT_GT(classified, 0);
}

TEST(SensorGroup, HashesAsItsRawValue) {
    std::unordered_set<SensorGroup> groups(SensorGroup::allCases.begin(),
                                           SensorGroup::allCases.end());
    EXPECT_EQ(groups.size(), 6U);
    for (const SensorGroup group : SensorGroup::allCases)
        EXPECT_EQ(std::hash<SensorGroup>()(group), std::hash<std::string_view>()(group.rawValue()));
}

TEST(TemperatureSensor, IsNamedByItsGroupAndKey) {
    EXPECT_EQ((TemperatureSensor{"Tp09", SensorGroup::cpu}.name()), "CPU Tp09");
    EXPECT_EQ((TemperatureSensor{"Tg0f", SensorGroup::gpu}.name()), "GPU Tg0f");
    EXPECT_EQ((TemperatureSensor{"Tm02", SensorGroup::memory}.name()), "Memory Tm02");
    EXPECT_EQ((TemperatureSensor{"TH0a", SensorGroup::ssd}.name()), "SSD TH0a");
    EXPECT_EQ((TemperatureSensor{"TPD0", SensorGroup::power}.name()), "Power TPD0");
    EXPECT_EQ((TemperatureSensor{"TW1P", SensorGroup::other}.name()), "Other TW1P");
}

TEST(TemperatureSensor, HasANameOfItsOwnForKnownKeys) {
    EXPECT_EQ((TemperatureSensor{"TH0x", SensorGroup::ssd}.name()), "SSD");
    EXPECT_EQ((TemperatureSensor{"TW0P", SensorGroup::other}.name()), "Wi-Fi");
    EXPECT_EQ((TemperatureSensor{"TW0P", SensorGroup::cpu}.name()), "Wi-Fi");
}

TEST(TemperatureSensor, IsNamedByTheGroupItHoldsRatherThanItsKeys) {
    EXPECT_EQ((TemperatureSensor{"Tp09", SensorGroup::gpu}.name()), "GPU Tp09");
    EXPECT_EQ((TemperatureSensor{"Ta0P", SensorGroup::other}.name()), "Other Ta0P");
}

TEST(TemperatureSensor, IsAKeyByKeyAndGroup) {
    std::unordered_map<TemperatureSensor, int> readings;
    readings[{"Tp09", SensorGroup::cpu}] = 1;
    readings[{"Tp09", SensorGroup::gpu}] = 2;
    readings[{"Tp0a", SensorGroup::cpu}] = 3;
    readings[{"Tp09", SensorGroup::cpu}] = 4;
    EXPECT_EQ(readings.size(), 3U);
    EXPECT_EQ((readings[{"Tp09", SensorGroup::cpu}]), 4);
    EXPECT_EQ((readings[{"Tp09", SensorGroup::gpu}]), 2);
}

TEST(TemperatureSensor, HashesDifferentlyForEachGroup) {
    const std::hash<TemperatureSensor> hash;
    std::unordered_set<std::size_t> hashes;
    for (const SensorGroup group : SensorGroup::allCases) {
        EXPECT_EQ(hash({"Tp09", group}), hash({"Tp09", group}));
        hashes.insert(hash({"Tp09", group}));
    }
    EXPECT_EQ(hashes.size(), 6U);
}

TEST(TemperatureSensor, BelievesReadingsFromFiveToAHundredAndThirtyDegrees) {
    EXPECT_EQ(TemperatureSensor::plausible, (ClosedRange{5.0, 130.0}));
    EXPECT_TRUE(TemperatureSensor::plausible.contains(5.0));
    EXPECT_TRUE(TemperatureSensor::plausible.contains(130.0));
    EXPECT_FALSE(TemperatureSensor::plausible.contains(4.9));
    EXPECT_FALSE(TemperatureSensor::plausible.contains(130.1));
}
