#include "SMC/ErrorOf.h"
#include "SMC/SMC.h"
#include "SMC/ScriptedRegistry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace tervale;
using test::bytesOf;
using test::errorOf;
using test::ScriptedRegistry;

namespace {

using Lines = std::vector<std::string>;

/// Two fans under manual control, unlocked. Descriptions are fetched beforehand, so that the
/// requests show reads and writes only, and those of keys that are missing.
struct FanControl : testing::Test {
    ScriptedRegistry registry;
    SMC smc{registry};

    void SetUp() override {
        registry.setByte("FNum", 2);
        for (const std::string fan : {"F0", "F1"}) {
            registry.setFloat(fan + "Tg", 1400);
            registry.setFloat(fan + "Mn", 1200);
            registry.setFloat(fan + "Mx", 6500.5F);
            registry.setByte(fan + "md", 1);
        }
        registry.setByte("Ftst", 1);
        for (const char* key :
             {"FNum", "F0Tg", "F0Mn", "F0Mx", "F0md", "F1Tg", "F1Mn", "F1Mx", "F1md", "Ftst"})
            smc.info(key);
        registry.log.clear();
    }
    std::string speedError(std::int64_t fan, double rpm) {
        return errorOf([&] { smc.setSpeed(fan, rpm); });
    }
    std::string autoError(const std::optional<std::vector<std::int64_t>>& fans = {}) {
        return errorOf([&] { smc.setAuto(fans); });
    }
};

} // namespace

TEST_F(FanControl, SetsASpeedAfterUnlockingAndTakingTheFan) {
    smc.setSpeed(1, 2000);
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"read FNum", "read F1Mn", "read F1Mx", "write Ftst 01", "write F1md 01",
                     "write F1Tg 00 00 fa 44"}));
}

TEST_F(FanControl, AsksForEachDescriptionOnFirstUse) {
    registry.remove("F0md");
    registry.setByte("F0Md", 0);
    SMC fresh(registry);
    fresh.setSpeed(0, 2000);
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"info FNum", "read FNum", "info F0Mn", "read F0Mn", "info F0Mx", "read F0Mx",
                     "info Ftst", "write Ftst 01", "info F0md", "info F0Md", "write F0Md 01",
                     "info F0Tg", "write F0Tg 00 00 fa 44"}));
}

TEST_F(FanControl, ReadsNothingButTheCountForAFanThatIsNotThere) {
    for (const std::int64_t fan :
         {std::int64_t(2), std::int64_t(-1), std::numeric_limits<std::int64_t>::max()}) {
        EXPECT_EQ(speedError(fan, 2000), "no fan " + std::to_string(fan));
        EXPECT_EQ(registry.takeRequests(), Lines{"read FNum"});
    }
    EXPECT_EQ(speedError(2, 2000), "no fan 2");
    EXPECT_EQ(speedError(-1, 2000), "no fan -1");
}

TEST_F(FanControl, TakesBothEndsOfTheFansRange) {
    EXPECT_EQ(speedError(0, 6500.5), "no error");
    EXPECT_EQ(registry.key("F0Tg").bytes, bytesOf({0x00, 0x24, 0xCB, 0x45}));
    EXPECT_EQ(speedError(0, 1200), "no error");
    EXPECT_EQ(registry.key("F0Tg").bytes, bytesOf({0x00, 0x00, 0x96, 0x44}));
}

TEST_F(FanControl, RefusesSpeedsOutsideTheRangeBeforeWriting) {
    for (const double rpm :
         {6501.0, std::nextafter(6500.5, 7000), 1199.9, -1.0, 0.0,
          std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(speedError(0, rpm), "rpm must be 1200...6500");
        EXPECT_EQ(registry.takeRequests(), (Lines{"read FNum", "read F0Mn", "read F0Mx"}));
    }
}

TEST_F(FanControl, TellsALimitsErrorBeforeWriting) {
    registry.fail("F0Mx", ScriptedRegistry::read, {0, 3});
    EXPECT_EQ(speedError(0, 2000), "F0Mx: SMC error 3");
    EXPECT_EQ(registry.takeRequests(), (Lines{"read FNum", "read F0Mn", "read F0Mx"}));
    registry.fail("F0Mn", ScriptedRegistry::read, {0, 4});
    EXPECT_EQ(speedError(0, 2000), "F0Mn: SMC error 4");
    registry.fail("FNum", ScriptedRegistry::read, {0, 5});
    EXPECT_EQ(speedError(0, 2000), "FNum: SMC error 5");
}

TEST_F(FanControl, SetsASpeedThoughUnlockingFails) {
    registry.fail("Ftst", ScriptedRegistry::write, {0, 3});
    EXPECT_EQ(speedError(0, 2000), "no error");
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"read FNum", "read F0Mn", "read F0Mx", "write Ftst 01", "write F0md 01",
                     "write F0Tg 00 00 fa 44"}));
}

TEST_F(FanControl, SetsASpeedOnAControllerThatNeedsNoUnlocking) {
    registry.remove("Ftst");
    SMC fresh(registry);
    fresh.setSpeed(0, 2000);
    const Lines requests = registry.takeRequests();
    EXPECT_EQ(std::count(requests.begin(), requests.end(), "info Ftst"), 1);
    EXPECT_EQ(std::count(requests.begin(), requests.end(), "write Ftst 01"), 0);
    EXPECT_EQ(requests.back(), "write F0Tg 00 00 fa 44");
}

TEST_F(FanControl, SetsASpeedThoughTheUnlockKeyCannotBeWrittenInItsType) {
    registry.set("Ftst", {"ui16", bytesOf({0, 0}), {}});
    SMC fresh(registry);
    EXPECT_EQ(errorOf([&] { fresh.setSpeed(0, 2000); }), "no error");
}

TEST_F(FanControl, LeavesTheTargetWhenTheFanCannotBeTaken) {
    registry.fail("F0md", ScriptedRegistry::write, {0, 3});
    EXPECT_EQ(speedError(0, 2000), "F0md: SMC error 3");
    EXPECT_EQ(registry.takeRequests().back(), "write F0md 01");
}

TEST_F(FanControl, TellsTheTargetsError) {
    registry.fail("F0Tg", ScriptedRegistry::write, {-1, 0});
    EXPECT_EQ(speedError(0, 2000), "F0Tg: IOKit error 0xffffffff");
}

TEST_F(FanControl, HandsAllFansBackAndLocksThem) {
    smc.setAuto();
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"read FNum", "write F0md 00", "write F1md 00", "write Ftst 00"}));
}

TEST_F(FanControl, HandsListedFansBackInTheirOrderAndLeavesThemUnlocked) {
    smc.setAuto(std::vector<std::int64_t>{1, 0, 1});
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"read FNum", "write F1md 00", "write F0md 00", "write F1md 00"}));
}

TEST_F(FanControl, HandsFansBackUpToTheFirstThatIsNotThere) {
    EXPECT_EQ(autoError({{0, 5, 1}}), "no fan 5");
    EXPECT_EQ(registry.takeRequests(), (Lines{"read FNum", "write F0md 00"}));
    EXPECT_EQ(autoError({{-1, 0}}), "no fan -1");
    EXPECT_EQ(registry.takeRequests(), Lines{"read FNum"});
    EXPECT_EQ(autoError({{2}}), "no fan 2");
}

TEST_F(FanControl, WritesNothingForAnEmptyList) {
    EXPECT_EQ(autoError(std::vector<std::int64_t>{}), "no error");
    EXPECT_EQ(registry.takeRequests(), Lines{"read FNum"});
}

TEST_F(FanControl, StopsHandingBackAtTheFirstError) {
    registry.fail("F0md", ScriptedRegistry::write, {0, 3});
    EXPECT_EQ(autoError(), "F0md: SMC error 3");
    EXPECT_EQ(registry.takeRequests(), (Lines{"read FNum", "write F0md 00"}));
    EXPECT_EQ(autoError({{1, 0}}), "F0md: SMC error 3");
    registry.fail("FNum", ScriptedRegistry::read, {0, 4});
    EXPECT_EQ(autoError(), "FNum: SMC error 4");
    EXPECT_EQ(autoError(std::vector<std::int64_t>{}), "FNum: SMC error 4");
}

TEST_F(FanControl, TellsAnErrorOfLocking) {
    registry.fail("Ftst", ScriptedRegistry::write, {0, 3});
    EXPECT_EQ(autoError(), "Ftst: SMC error 3");
    EXPECT_EQ(autoError({{0, 1}}), "no error");
}

TEST_F(FanControl, HandsFansBackOnAControllerWithoutALock) {
    registry.remove("Ftst");
    SMC fresh(registry);
    EXPECT_EQ(errorOf([&] { fresh.setAuto(); }), "no error");
    EXPECT_EQ(registry.takeRequests().back(), "info Ftst");
}

TEST_F(FanControl, LocksEvenWithoutFans) {
    registry.setByte("FNum", 0);
    smc.setAuto();
    EXPECT_EQ(registry.takeRequests(), (Lines{"read FNum", "write Ftst 00"}));
}

TEST_F(FanControl, FailsRatherThanListingMoreFansThanMemoryHolds) {
    registry.setFloat("FNum", 1e18F);
    SMC fresh(registry);
    EXPECT_EQ(errorOf([&] { fresh.setAuto(); }), "F2Md: SMC error 132");
}
