#include "Agent/SafetySensors.h"
#include "SMC/ScriptedRegistry.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

class SafetySensorsTest : public testing::Test {
  protected:
    SafetySensorsTest() {
        registry.setFloat("Tp01", 60);
        registry.setFloat("Tg05", 70);
        registry.setFloat("TH0x", 99);
        registry.setFloat("Tm02", 99);
        registry.setKeyCount();
    }

    test::ScriptedRegistry registry;
    SMC smc{registry};
    SafetySensors sensors{smc};
};

TEST_F(SafetySensorsTest, TellTheHottestOfTheCpuAndTheGpuAndOfNothingElse) {
    EXPECT_EQ(sensors.hottest(), 70);
    registry.setFloat("Tp01", 95.5F);
    EXPECT_EQ(sensors.hottest(), 95.5);
    registry.fail("Tp01", test::ScriptedRegistry::read, {0, 133});
    EXPECT_EQ(sensors.hottest(), 70);
}

TEST_F(SafetySensorsTest, TellNothingOnceNoneCanBeRead) {
    EXPECT_EQ(sensors.hottest(), 70);
    for (const char* key : {"Tp01", "Tg05"})
        registry.fail(key, test::ScriptedRegistry::read, {-536870184, 0});
    EXPECT_EQ(sensors.hottest(), std::nullopt);
}

TEST_F(SafetySensorsTest, AreLookedForUntilThereAreSome) {
    registry.fail("#KEY", test::ScriptedRegistry::read, {0, 133});
    EXPECT_EQ(sensors.hottest(), std::nullopt);
    registry.succeed("#KEY", test::ScriptedRegistry::read);
    EXPECT_EQ(sensors.hottest(), 70);
}

TEST_F(SafetySensorsTest, AreLookedForAgainWhereOnlySomeCouldBeAskedFor) {
    registry.setFloat("Tp01", 96);
    registry.fail("Tp01", test::ScriptedRegistry::keyInformation, {-536870184, 0});
    EXPECT_EQ(sensors.hottest(), 70);
    registry.succeed("Tp01", test::ScriptedRegistry::keyInformation);
    EXPECT_EQ(sensors.hottest(), 96);
}

TEST_F(SafetySensorsTest, AreReadThoughTheyCouldNotBeReadWhenTheyWereFound) {
    registry.fail("Tp01", test::ScriptedRegistry::read, {-536870184, 0});
    registry.setFloat("Tg05", 0);
    EXPECT_EQ(sensors.hottest(), std::nullopt);
    registry.succeed("Tp01", test::ScriptedRegistry::read);
    EXPECT_EQ(sensors.hottest(), 60);
    registry.setFloat("Tg05", 97);
    EXPECT_EQ(sensors.hottest(), 97);
}

} // namespace
} // namespace tervale
