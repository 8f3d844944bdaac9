#include "SMC/LateRegistry.h"
#include "SMC/SMC.h"
#include "SMC/ScriptedRegistry.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

class LateRegistryTest : public testing::Test {
  protected:
    LateRegistryTest() { controller.setByte("FNum", 2); }

    test::ScriptedRegistry controller;
    LateRegistry registry{controller};
    SMC smc{registry};
};

TEST_F(LateRegistryTest, HasEveryCallFailUntilTheControllerIsReached) {
    EXPECT_THROW(smc.fanCount(), SMCError);
    EXPECT_TRUE(controller.lifecycle.empty());
    EXPECT_EQ(registry.reach(), std::nullopt);
    EXPECT_EQ(smc.fanCount(), 2);
}

TEST_F(LateRegistryTest, TellsWhyTheControllerCannotBeReachedAndTriesAgain) {
    controller.serviceExists = false;
    EXPECT_EQ(registry.reach(), "AppleSMC not found");
    controller.serviceExists = true;
    controller.openStatus = -536870207;
    EXPECT_EQ(registry.reach(), "IOServiceOpen failed: -536870207");
    EXPECT_THROW(smc.fanCount(), SMCError);
    controller.openStatus = 0;
    EXPECT_EQ(registry.reach(), std::nullopt);
    EXPECT_EQ(registry.reach(), std::nullopt);
    EXPECT_EQ(smc.fanCount(), 2);
    EXPECT_EQ(controller.opens, 2);
    EXPECT_EQ(controller.releases, 2);
}

TEST(LateRegistry, ClosesWhatItHasOpenedOnce) {
    test::ScriptedRegistry controller;
    {
        LateRegistry registry(controller);
        EXPECT_EQ(registry.reach(), std::nullopt);
        { const SMC smc(registry); }
        EXPECT_EQ(controller.closes, 0);
    }
    EXPECT_EQ(controller.closes, 1);
}

TEST(LateRegistry, ClosesNothingThatItNeverOpened) {
    test::ScriptedRegistry controller;
    controller.openStatus = 5;
    {
        LateRegistry registry(controller);
        EXPECT_NE(registry.reach(), std::nullopt);
    }
    EXPECT_EQ(controller.closes, 0);
}

} // namespace
} // namespace tervale
