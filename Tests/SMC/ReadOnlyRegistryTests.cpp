#include "SMC/ReadOnlyRegistry.h"
#include "SMC/SMC.h"
#include "SMC/ScriptedRegistry.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

TEST(ReadOnlyRegistry, LetsAnythingBeReadAndNothingBeWritten) {
    test::ScriptedRegistry controller;
    controller.setByte("FNum", 1);
    controller.setFloat("F0Ac", 1300);
    controller.setFloat("F0Tg", 1200);
    controller.setFloat("F0Mn", 1200);
    controller.setFloat("F0Mx", 6000);
    controller.setByte("F0md", 0);
    ReadOnlyRegistry registry(controller);
    {
        SMC smc(registry);
        const Fan before = smc.fan(0);
        EXPECT_EQ(before.actual, 1300);
        EXPECT_NO_THROW(smc.setSpeed(0, 6000));
        EXPECT_NO_THROW(smc.setAuto());
        EXPECT_EQ(smc.fan(0), before);
        EXPECT_THROW(smc.setSpeed(1, 6000), SMCError);
    }
    for (const auto& exchange : controller.log)
        EXPECT_NE(exchange.request[42], std::byte{test::ScriptedRegistry::write});
    EXPECT_EQ(controller.opens, 1);
    EXPECT_EQ(controller.releases, 1);
    EXPECT_EQ(controller.closes, 1);
}

} // namespace
} // namespace tervale
