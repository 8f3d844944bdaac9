#include "SMC/ErrorOf.h"
#include "SMC/SMC.h"
#include "SMC/ScriptedRegistry.h"
#include "Support/NotANumber.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace tervale;
using test::bytesOf;
using test::errorOf;
using test::ScriptedRegistry;

namespace {

using Lines = std::vector<std::string>;
using Sensors = std::vector<TemperatureSensor>;
using Readings = std::unordered_map<TemperatureSensor, double>;

struct TemperatureReadout : testing::Test {
    ScriptedRegistry registry;
    SMC smc{registry};

    Sensors discover() {
        registry.setKeyCount();
        return smc.temperatureSensors();
    }
};

} // namespace

TEST_F(TemperatureReadout, FindsSensorsInTheOrderOfTheKeys) {
    registry.setFloat("Tg0f", 45);
    registry.setByte("FNum", 2);
    registry.setFloat("Tp01", 50);
    registry.setFloat("F0Ac", 100);
    registry.setFloat("TaLP", 40);
    EXPECT_EQ(discover(), (Sensors{{"Tg0f", SensorGroup::gpu},
                                   {"Tp01", SensorGroup::cpu},
                                   {"TaLP", SensorGroup::other}}));
}

TEST_F(TemperatureReadout, AsksOnlyWhatEachKeyNeeds) {
    registry.setByte("FNum", 2);
    registry.setFloat("Tp01", 50);
    registry.setFixedPoint("Tp02", 200);
    discover();
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"info #KEY", "read #KEY", "index 0", "index 1", "info Tp01", "read Tp01",
                     "index 2", "info Tp02", "index 3"}));
    smc.temperatureSensors();
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"read #KEY", "index 0", "index 1", "read Tp01", "index 2", "index 3"}));
}

TEST_F(TemperatureReadout, LeavesOutKeysThatBelongToNoGroup) {
    registry.setFloat("Ta0P", 40);
    registry.setFloat("tp01", 40);
    registry.setFloat("T\xFFpp", 40);
    EXPECT_EQ(discover(), Sensors());
}

TEST_F(TemperatureReadout, TakesSinglePrecisionFloatsOnly) {
    registry.setFixedPoint("Tp01", 200);
    registry.setByte("Tp02", 50);
    registry.set("Tp03", {"flt2", bytesOf({0, 0, 0x48, 0x42}), {}});
    registry.set("Tp05", {"ui32", bytesOf({0, 0, 0, 50}), {}});
    registry.setFloat("Tp04", 50);
    EXPECT_EQ(discover(), (Sensors{{"Tp04", SensorGroup::cpu}}));
}

TEST_F(TemperatureReadout, FindsOnlySensorsWithABelievableReading) {
    registry.setFloat("Tp01", 4.9F);
    registry.setFloat("Tp02", 5);
    registry.setFloat("Tp03", 130);
    registry.setFloat("Tp04", 130.1F);
    registry.setFloat("Tp05", static_cast<float>(test::notANumber));
    registry.setFloat("Tp06", 0);
    registry.setFloat("Tp07", -40);
    EXPECT_EQ(discover(), (Sensors{{"Tp02", SensorGroup::cpu}, {"Tp03", SensorGroup::cpu}}));
}

TEST_F(TemperatureReadout, PassesOverKeysThatFail) {
    for (const char* key : {"Tp01", "Tp02", "Tp03", "Tp04", "Tp05"})
        registry.setFloat(key, 50);
    registry.set("Tp06", {"flt ", bytesOf({0, 0}), {}});
    registry.set("Tp07", {"flt ", bytesOf({0, 0, 0, 0}), 33});
    registry.failIndex(registry.indexOf("Tp01"), {-1, 0});
    registry.failIndex(registry.indexOf("Tp02"), {0, 1});
    registry.fail("Tp03", ScriptedRegistry::keyInformation, {0, 1});
    registry.fail("Tp04", ScriptedRegistry::read, {-1, 0});
    EXPECT_EQ(discover(), (Sensors{{"Tp05", SensorGroup::cpu}}));
    EXPECT_EQ(registry.takeRequests().back(), "index 7") << "the last key is examined too";
}

TEST_F(TemperatureReadout, LooksAtNoMoreKeysThanAreCounted) {
    registry.setFloat("Tp01", 50);
    registry.setFloat("Tp02", 50);
    registry.setFloat("#KEY", 1.9F);
    EXPECT_EQ(smc.temperatureSensors(), (Sensors{{"Tp01", SensorGroup::cpu}}));
    registry.setFloat("#KEY", 0);
    EXPECT_TRUE(smc.temperatureSensors().empty());
    registry.setFloat("#KEY", 9);
    EXPECT_EQ(smc.temperatureSensors().size(), 2U) << "indices without a key are passed over";
}

TEST_F(TemperatureReadout, FailsWhenTheKeysCannotBeCounted) {
    EXPECT_EQ(errorOf([&] { smc.temperatureSensors(); }), "#KEY: SMC error 132");
}

TEST_F(TemperatureReadout, StopsTheProcessForACountThatIsNoNumberOfKeys) {
    for (const float count : {-1.0F, static_cast<float>(test::notANumber),
                              std::numeric_limits<float>::infinity(), 1e30F}) {
        registry.setFloat("#KEY", count);
        EXPECT_DEATH(smc.temperatureSensors(), "negative number of keys|no 64-bit integer");
    }
}

TEST_F(TemperatureReadout, ReadsDiscoveredSensorsInOneCallEach) {
    registry.setFloat("Tp01", 50);
    registry.setFloat("Tg0f", 45.5F);
    const Sensors sensors = discover();
    registry.takeRequests();
    EXPECT_EQ(smc.temperatures(sensors), (Readings{{sensors[0], 50.0}, {sensors[1], 45.5}}));
    EXPECT_EQ(registry.takeRequests(), (Lines{"read Tp01", "read Tg0f"}));
}

TEST_F(TemperatureReadout, LeavesASensorOutOnlyWhileItsReadingIsUnbelievable) {
    registry.setFloat("Tp01", 50);
    const Sensors sensors = discover();
    for (const float value : {200.0F, 130.1F, 4.9F, static_cast<float>(test::notANumber)}) {
        registry.setFloat("Tp01", value);
        EXPECT_TRUE(smc.temperatures(sensors).empty()) << value;
    }
    for (const float value : {5.0F, 60.0F, 130.0F}) {
        registry.setFloat("Tp01", value);
        EXPECT_EQ(smc.temperatures(sensors).at(sensors[0]), static_cast<double>(value));
    }
}

TEST_F(TemperatureReadout, LeavesOutSensorsThatFail) {
    registry.setFloat("Tp01", 50);
    registry.setFloat("Tp02", 51);
    const Sensors sensors = discover();
    registry.fail("Tp01", ScriptedRegistry::read, {-1, 0});
    EXPECT_EQ(smc.temperatures(sensors), (Readings{{sensors[1], 51.0}}));
    registry.succeed("Tp01", ScriptedRegistry::read);
    EXPECT_EQ(smc.temperatures(sensors).size(), 2U);
}

TEST_F(TemperatureReadout, ReadsAnyTypeOfAListedSensor) {
    registry.setFixedPoint("Tp01", 201);
    const Sensors sensors{{"Tp01", SensorGroup::cpu}, {"Tp99", SensorGroup::cpu}};
    EXPECT_EQ(smc.temperatures(sensors), (Readings{{sensors[0], 50.25}}));
}

TEST_F(TemperatureReadout, ReadsNothingForNoSensors) {
    EXPECT_TRUE(smc.temperatures({}).empty());
    EXPECT_TRUE(registry.log.empty());
}

TEST_F(TemperatureReadout, ReadsASensorAsOftenAsItIsListed) {
    registry.setFloat("Tp01", 50);
    const Sensors sensors{
        {"Tp01", SensorGroup::cpu}, {"Tp01", SensorGroup::gpu}, {"Tp01", SensorGroup::cpu}};
    EXPECT_EQ(smc.temperatures(sensors), (Readings{{sensors[0], 50.0}, {sensors[1], 50.0}}));
    EXPECT_EQ(registry.takeRequests(), (Lines{"info Tp01", "read Tp01", "read Tp01", "read Tp01"}));
}

TEST_F(TemperatureReadout, KeepsTheLaterReadingOfASensorListedTwice) {
    // A value that changes with every read, and is unbelievable the third time.
    struct Drifting : ScriptedRegistry {
        float next = 50;
        Status callStruct(Connection used, std::uint32_t selector, const Structure& request,
                          Structure& response) override {
            if (std::to_integer<unsigned>(request[42]) == read)
                setFloat("Tp01", next += 40);
            return ScriptedRegistry::callStruct(used, selector, request, response);
        }
    } drifting;
    drifting.setFloat("Tp01", 50);
    SMC other(drifting);
    const TemperatureSensor sensor{"Tp01", SensorGroup::cpu};
    EXPECT_EQ(other.temperatures(Sensors{sensor, sensor, sensor}), (Readings{{sensor, 130.0}}));
}

TEST_F(TemperatureReadout, FindsExactlyTheSensorsThatAnswerAsSensorsDo) {
    std::mt19937 random(35);
    const Lines names{"Tp", "Ta", "TP", "Fx", "TW", "Tm"};
    Sensors expected;
    for (unsigned i = 0; i < 600; ++i) {
        const std::string name = names[random() % names.size()] + std::to_string(i % 10) +
                                 static_cast<char>('A' + i / 10 % 60);
        const auto value = static_cast<float>(random() % 160) - 10.0F;
        const bool isFloat = random() % 4 != 0;
        const bool fails = random() % 5 == 0;
        if (isFloat)
            registry.setFloat(name, value);
        else
            registry.setFixedPoint(name, 200);
        if (fails)
            registry.fail(
                name, random() % 2 == 0 ? ScriptedRegistry::keyInformation : ScriptedRegistry::read,
                {0, 1});
        const auto group = SensorGroup::of(name);
        if (group && isFloat && !fails && value >= 5 && value <= 130)
            expected.push_back({name, *group});
    }
    EXPECT_EQ(discover(), expected);
    EXPECT_GT(expected.size(), 100U);
    EXPECT_EQ(smc.temperatures(expected).size(), expected.size());
}
