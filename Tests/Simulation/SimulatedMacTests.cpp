#include "SMC/ErrorOf.h"
#include "SMC/SMC.h"
#include "SMC/SMCCodec.h"
#include "Simulation/SensorKeys.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace tervale {
namespace {

SimulatedMacOptions still() {
    return {.scenario = Scenario::idle};
}

std::vector<std::string> allKeys(SMC& smc) {
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < smc.keyCount(); ++i)
        names.push_back(smc.key(i));
    return names;
}

TEST(SimulatedMac, HasAtLeastFifteenHundredKeysSortedByName) {
    SimulatedMac mac(still());
    SMC smc(mac);
    const std::vector<std::string> names = allKeys(smc);
    EXPECT_GE(names.size(), 1500U);
    EXPECT_EQ(names.size(), mac.keyCount());
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(std::set(names.begin(), names.end()).size(), names.size());
    EXPECT_EQ(names.front(), "#KEY");
}

TEST(SimulatedMac, HasReadableKeysOfEverySupportedTypeAndSomeOfOthers) {
    SimulatedMac mac(still());
    SMC smc(mac);
    std::set<std::string> readable;
    std::set<std::string> unsupported;
    for (const std::string& name : allKeys(smc)) {
        if (!smc.exists(name))
            continue;
        const std::string type = smc.info(name).type;
        const std::string message = test::errorOf([&] { smc.read(name); });
        if (message == "no error")
            readable.insert(type);
        else if (message.starts_with("unsupported type"))
            unsupported.insert(type);
    }
    EXPECT_EQ(readable, (std::set<std::string>{"flt ", "fpe2", "ui8 ", "flag", "ui16", "ui32"}));
    EXPECT_GE(unsupported.size(), 2U);
    for (const std::string& type : unsupported)
        EXPECT_FALSE(readable.contains(type)) << type;
}

TEST(SimulatedMac, AnswersInTheControllersEncodings) {
    SimulatedMac mac({.scenario = Scenario::idle, .fans = 2});
    SMC smc(mac);
    EXPECT_EQ(smc.info("#KEY"), (SMC::Info{4, "ui32"}));
    EXPECT_EQ(smc.info("FNum"), (SMC::Info{1, "ui8 "}));
    EXPECT_EQ(smc.info("F0Ac"), (SMC::Info{4, "flt "}));
    EXPECT_EQ(smc.read("Tp0F"), 45.5);
    EXPECT_EQ(smc.read("TCHP"), 55);
    EXPECT_EQ(smc.read("TRDX"), 61);
    EXPECT_EQ(smc.read("TG0V"), 1);
    EXPECT_EQ(smc.read("TCMz"), -127);
}

TEST(SimulatedMac, ShowsExactlyItsBelievableSensorsInEveryGroup) {
    SimulatedMac mac(still());
    SMC smc(mac);
    std::set<std::string> expected;
    std::size_t position[SensorGroup::allCases.size()] = {};
    std::set<SensorGroup::Case> groups;
    const auto sensors = smc.temperatureSensors();
    for (const TemperatureSensor& sensor : sensors) {
        groups.insert(sensor.group);
        expected.insert(
            sensorKey(sensor.group, position[static_cast<SensorGroup::Case>(sensor.group)]++));
    }
    EXPECT_EQ(sensors.size(), 150U);
    EXPECT_EQ(groups.size(), SensorGroup::allCases.size());
    for (const TemperatureSensor& sensor : sensors)
        EXPECT_EQ(expected.count(sensor.key), 1U) << sensor.key;
}

TEST(SimulatedMac, NamesSensorsAsRealControllersDo) {
    SimulatedMac mac(still());
    SMC smc(mac);
    for (const char* key : {"Tp01", "Tp05", "Tp0D", "Te05", "Tg0f", "Tm02", "TH0x", "TH0a", "TPD0",
                            "TVD0", "TMVR", "TUVR", "TW0P", "TaLP"})
        EXPECT_TRUE(TemperatureSensor::plausible.contains(smc.read(key))) << key;
}

TEST(SimulatedMac, GivesEverySensorTheGroupOfItsName) {
    for (const SensorGroup group : SensorGroup::allCases) {
        std::set<std::string> keys;
        for (std::size_t i = 0; i < 60; ++i) {
            const std::string key = sensorKey(group, i);
            EXPECT_EQ(SensorGroup::of(key), group) << key;
            EXPECT_EQ(key.size(), 4U);
            keys.insert(key);
        }
        EXPECT_EQ(keys.size(), 60U);
    }
}

TEST(SimulatedMac, CanHaveAnyNumberOfSensorsUpToItsMost) {
    for (const std::size_t count : {std::size_t{0}, std::size_t{6}, SensorBank::most}) {
        SimulatedMac mac({.scenario = Scenario::idle, .sensors = count});
        SMC smc(mac);
        EXPECT_EQ(smc.temperatureSensors().size(), count);
    }
}

TEST(SimulatedMac, SpellsModeKeysOneWayOrTheOther) {
    SimulatedMac lower({.modeSpelling = ModeSpelling::lowerCase});
    SimulatedMac upper({.modeSpelling = ModeSpelling::upperCase});
    SMC first(lower);
    SMC second(upper);
    EXPECT_TRUE(first.exists("F1md") && !first.exists("F1Md"));
    EXPECT_TRUE(second.exists("F1Md") && !second.exists("F1md"));
    second.setSpeed(1, 3000);
    EXPECT_TRUE(second.fan(1).manual);
}

TEST(SimulatedMac, HasFansWithLimitsOfTheirOwn) {
    SimulatedMac mac(still());
    SMC smc(mac);
    const auto fans = smc.fans();
    ASSERT_EQ(fans.size(), 2U);
    EXPECT_EQ(fans[0].min, 1200);
    EXPECT_EQ(fans[0].max, 5777);
    EXPECT_EQ(fans[1].min, 1300);
    EXPECT_EQ(fans[1].max, 6241);
    SimulatedMac fanless({.fans = 0});
    EXPECT_TRUE(SMC(fanless).fans().empty());
    SimulatedMac many({.fans = 10});
    EXPECT_EQ(SMC(many).fans().size(), 10U);
}

TEST(SimulatedMac, CountsEveryCallByItsKind) {
    SimulatedMac mac(still());
    SMC smc(mac);
    smc.read("F0Ac");
    smc.read("F0Ac");
    smc.key(3);
    smc.setSpeed(0, 2000);
    // The speed takes reads of FNum, F0Mn and F0Mx, and writes of Ftst, F0md and F0Tg.
    const SimulatedMac::CallCounts expected{
        .total = 16, .descriptions = 7, .keysByIndex = 1, .reads = 5, .writes = 3};
    EXPECT_EQ(mac.calls(), expected);
    mac.resetCalls();
    EXPECT_EQ(mac.calls(), SimulatedMac::CallCounts{});
}

TEST(SimulatedMac, IsLeftWithoutServicesAndConnections) {
    SimulatedMac mac(still());
    {
        const SMC first(mac);
        const SMC second(mac);
        EXPECT_EQ(mac.openConnections(), 2U);
        EXPECT_EQ(mac.heldServices(), 0U);
    }
    EXPECT_EQ(mac.openConnections(), 0U);
}

TEST(SimulatedMac, RefusesCallsThatAreNoneOfTheControllers) {
    SimulatedMac mac(still());
    IORegistry::Connection connection = 0;
    const auto service = mac.findService("AppleSMC");
    ASSERT_TRUE(service.has_value());
    EXPECT_FALSE(mac.findService("AppleSmartBattery").has_value());
    EXPECT_NE(mac.open(*service, 1, connection), 0);
    EXPECT_NE(mac.open(*service + 1, 0, connection), 0);
    ASSERT_EQ(mac.open(*service, 0, connection), 0);
    mac.release(*service);

    SMCStructure request;
    request.command = 7;
    IORegistry::Structure response{};
    EXPECT_EQ(mac.callStruct(connection, 2, request.toBytes(), response), 0);
    EXPECT_NE(SMCStructure::fromBytes(response).result, 0);
    EXPECT_NE(mac.callStruct(connection, 5, request.toBytes(), response), 0);
    EXPECT_NE(mac.callStruct(connection + 1, 2, request.toBytes(), response), 0);
    mac.close(connection);
    EXPECT_NE(mac.callStruct(connection, 2, request.toBytes(), response), 0);
}

TEST(SimulatedMac, RefusesAReadOfTheWrongSize) {
    SimulatedMac mac(still());
    IORegistry::Connection connection = 0;
    const auto service = mac.findService("AppleSMC");
    ASSERT_EQ(mac.open(service.value(), 0, connection), 0);
    SMCStructure request;
    request.key = SMCCodec::fourCC("F0Ac");
    request.command = static_cast<std::uint8_t>(SMCCommand::read);
    request.dataSize = 2;
    IORegistry::Structure response{};
    EXPECT_EQ(mac.callStruct(connection, smcExchangeSelector, request.toBytes(), response), 0);
    EXPECT_EQ(SMCStructure::fromBytes(response).result, 135);
}

} // namespace
} // namespace tervale
