#include "Agent/SafetySensors.h"
#include "SMC/ScriptedRegistry.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

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

TEST_F(SafetySensorsTest, AreNotLookedForAmongKeysThatCannotBeCounted) {
    for (const float count : {std::nanf(""), 3e38F, -2.0F, 1e9F}) {
        registry.setFloat("#KEY", count);
        SMC fresh(registry);
        EXPECT_TRUE(findSensors(fresh).empty()) << count;
    }
}

} // namespace
} // namespace tervale
