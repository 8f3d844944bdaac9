#include "SMC/ErrorOf.h"
#include "SMC/SMC.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace tervale {
namespace {

class Faults : public testing::Test {
  protected:
    SimulatedMac mac{{.scenario = Scenario::idle, .fillers = 0}};
    SMC smc{mac};
};

TEST_F(Faults, OfAKeyShowAsTheControllersResult) {
    mac.inject("F0Ac", fault::Refused{129});
    EXPECT_EQ(test::errorOf([&] { smc.read("F0Ac"); }), "F0Ac: SMC error 129");
    EXPECT_EQ(test::errorOf([&] { smc.fan(0); }), "F0Ac: SMC error 129");
    EXPECT_EQ(test::errorOf([&] { smc.fan(1); }), "no error");
    mac.heal("F0Ac");
    EXPECT_EQ(test::errorOf([&] { smc.read("F0Ac"); }), "no error");
}

TEST_F(Faults, OfAValueLeaveTheDescription) {
    mac.inject("F0Tg", fault::RefusedValue{133});
    EXPECT_TRUE(smc.exists("F0Tg"));
    EXPECT_EQ(test::errorOf([&] { smc.read("F0Tg"); }), "F0Tg: SMC error 133");
    EXPECT_EQ(test::errorOf([&] { smc.setSpeed(0, 2000); }), "F0Tg: SMC error 133");
}

TEST_F(Faults, OfTheKernelShowAsItsStatus) {
    const auto status = static_cast<IORegistry::Status>(0xe00002c2);
    mac.inject("F0Ac", fault::KernelError{status});
    EXPECT_EQ(test::errorOf([&] { smc.read("F0Ac"); }), "F0Ac: IOKit error 0xe00002c2");
    mac.failEveryCall(status);
    EXPECT_EQ(test::errorOf([&] { smc.fans(); }), "FNum: IOKit error 0xe00002c2");
    mac.failEveryCall(std::nullopt);
    EXPECT_EQ(smc.fanCount(), 2);
}

TEST_F(Faults, MakeASensorDropOutOfTheTemperatures) {
    const std::array sensors{TemperatureSensor{"Tp01", SensorGroup::cpu},
                             TemperatureSensor{"Tp05", SensorGroup::cpu}};
    mac.inject("Tp01", fault::DroppedOut{});
    const auto readings = smc.temperatures(sensors);
    EXPECT_FALSE(readings.contains(sensors[0]));
    EXPECT_TRUE(readings.contains(sensors[1]));
    mac.heal("Tp01");
    EXPECT_TRUE(smc.temperatures(sensors).contains(sensors[0]));
}

TEST_F(Faults, MakeASensorStick) {
    const double before = smc.read("Tp01");
    mac.inject("Tp01", fault::Stuck{});
    mac.advance(30);
    EXPECT_EQ(smc.read("Tp01"), before);
    mac.heal("Tp01");
    EXPECT_NE(smc.read("Tp01"), before);
}

TEST_F(Faults, TakeTheServiceAway) {
    mac.setService(service::Absent{});
    EXPECT_EQ(test::errorOf([&] { SMC another(mac); }), "AppleSMC not found");
    mac.setService(service::Refusing{-536870201});
    EXPECT_EQ(test::errorOf([&] { SMC another(mac); }), "IOServiceOpen failed: -536870201");
    EXPECT_EQ(mac.heldServices(), 0U);
    mac.setService(service::Present{});
    EXPECT_EQ(test::errorOf([&] { SMC another(mac); }), "no error");
}

TEST_F(Faults, AreThereFromTheStartInKeysThatAreNotToBeHad) {
    EXPECT_EQ(test::errorOf([&] { smc.read("Tp0E"); }), "Tp0E: SMC error 132");
    EXPECT_TRUE(smc.exists("TW0T"));
    EXPECT_EQ(test::errorOf([&] { smc.read("TW0T"); }), "TW0T: SMC error 133");
    EXPECT_EQ(test::errorOf([&] { smc.read("TzBg"); }), "TzBg: size 48 too large");
    EXPECT_EQ(test::errorOf([&] { smc.read("none"); }), "none: SMC error 132");
    EXPECT_NE(test::errorOf([&] { smc.key(smc.keyCount()); }), "no error");
}

TEST_F(Faults, MeetWhoWritesToWhatIsNotWritable) {
    EXPECT_EQ(test::errorOf([&] { smc.write("F0Mx", 9000); }), "F0Mx: SMC error 134");
    EXPECT_EQ(test::errorOf([&] { smc.write("F0Ac", 9000); }), "F0Ac: SMC error 134");
    EXPECT_EQ(test::errorOf([&] { smc.write("Tp01", 20); }), "Tp01: SMC error 134");
    EXPECT_EQ(test::errorOf([&] { smc.write("FNum", 3); }), "FNum: SMC error 134");
    EXPECT_EQ(test::errorOf([&] { smc.write("#KEY", 3); }), "unsupported type 'ui32'");
}

} // namespace
} // namespace tervale
