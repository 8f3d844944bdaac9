#include "Agent/FanDriver.h"
#include "SMC/ReadOnlyRegistry.h"
#include "SMC/ScriptedRegistry.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tervale {
namespace {

class FanDriving : public testing::Test {
  protected:
    SimulatedMac mac{{.scenario = Scenario::idle, .fillers = 0}};
    SMC smc{mac};
    FanDriver driver{smc};
};

TEST_F(FanDriving, MapsAFractionOntoEveryFansOwnRange) {
    EXPECT_EQ(driver.apply(target::Speed{0.5}), std::nullopt);
    const auto fans = smc.fans();
    EXPECT_TRUE(fans[0].manual && fans[1].manual);
    EXPECT_NEAR(fans[0].target, 1200 + 0.5 * 4577, 0.01);
    EXPECT_NEAR(fans[1].target, 1300 + 0.5 * 4941, 0.01);
}

TEST_F(FanDriving, ReachesBothEndsExactly) {
    EXPECT_EQ(driver.apply(target::Speed{1}), std::nullopt);
    EXPECT_EQ(smc.fan(0).target, 5777);
    EXPECT_EQ(smc.fan(1).target, 6241);
    EXPECT_EQ(driver.apply(target::Speed{0}), std::nullopt);
    EXPECT_EQ(smc.fan(0).target, 1200);
}

TEST_F(FanDriving, TakesAFractionOutsideTheRangeForTheNearerEnd) {
    EXPECT_EQ(driver.apply(target::Speed{1.5}), std::nullopt);
    EXPECT_EQ(smc.fan(0).target, 5777);
    EXPECT_EQ(driver.apply(target::Speed{-3}), std::nullopt);
    EXPECT_EQ(smc.fan(0).target, 1200);
}

TEST_F(FanDriving, LeavesTheFansToTheFirmwareWhenTheFractionIsNoNumber) {
    driver.apply(target::Speed{0.5});
    EXPECT_EQ(driver.apply(target::Speed{std::numeric_limits<double>::quiet_NaN()}), std::nullopt);
    EXPECT_FALSE(smc.fan(0).manual);
}

TEST_F(FanDriving, WritesNothingWhileNothingChanges) {
    driver.apply(target::Automatic{});
    EXPECT_EQ(mac.calls().writes, 0U);
    driver.apply(target::Speed{0.5});
    EXPECT_EQ(mac.calls().writes, 6U);
    driver.apply(target::Speed{0.5});
    driver.apply(target::Speed{0.501});
    EXPECT_EQ(mac.calls().writes, 6U) << "nobody hears five revolutions per minute";
    driver.apply(target::Speed{0.51});
    EXPECT_EQ(mac.calls().writes, 12U);
    driver.apply(target::Automatic{});
    driver.apply(target::Automatic{});
    EXPECT_EQ(mac.calls().writes, 15U);
}

TEST_F(FanDriving, SetsAFanRightThatSomethingElseHasChanged) {
    driver.apply(target::Speed{0.5});
    smc.setAuto(std::vector<std::int64_t>{1});
    driver.apply(target::Speed{0.5});
    EXPECT_TRUE(smc.fan(1).manual);
    driver.apply(target::Automatic{});
    smc.setSpeed(0, 3000);
    driver.apply(target::Automatic{});
    EXPECT_FALSE(smc.fan(0).manual);
}

TEST_F(FanDriving, DrivesTheOtherFansWhenOneFails) {
    mac.inject("F0md", fault::RefusedValue{133});
    EXPECT_EQ(driver.apply(target::Speed{1}), "F0md: SMC error 133");
    EXPECT_FALSE(smc.fan(0).manual);
    EXPECT_EQ(smc.fan(1).target, 6241);
    mac.heal("F0md");
    EXPECT_EQ(driver.apply(target::Speed{1}), std::nullopt);
    EXPECT_EQ(smc.fan(0).target, 5777);
}

TEST_F(FanDriving, HandsTheOtherFansBackWhenOneFails) {
    driver.apply(target::Speed{1});
    mac.inject("F0md", fault::RefusedValue{133});
    EXPECT_EQ(driver.apply(target::Automatic{}), "F0md: SMC error 133");
    EXPECT_FALSE(smc.fan(1).manual);
    mac.heal("F0md");
    EXPECT_EQ(driver.apply(target::Automatic{}), std::nullopt);
    EXPECT_FALSE(smc.fan(0).manual);
    EXPECT_EQ(smc.read("Ftst"), 0);
}

TEST_F(FanDriving, TakesNoFanForHandedBackThatDoesNotSaySo) {
    driver.apply(target::Speed{1});
    mac.inject("F0md", fault::KernelError{static_cast<IORegistry::Status>(0xe00002d8)});
    smc.write("Ftst", 0);
    EXPECT_NE(driver.apply(target::Automatic{}), std::nullopt);
    mac.heal("F0md");
    EXPECT_EQ(driver.apply(target::Automatic{}), std::nullopt);
    EXPECT_FALSE(smc.fan(0).manual);
}

TEST_F(FanDriving, TellsTheErrorWhenTheControllerIsGone) {
    mac.failEveryCall(static_cast<IORegistry::Status>(0xe00002d8));
    EXPECT_EQ(driver.apply(target::Speed{1}), "FNum: IOKit error 0xe00002d8");
    EXPECT_EQ(driver.apply(target::Automatic{}), "FNum: IOKit error 0xe00002d8");
}

TEST_F(FanDriving, LocksTheFansThatAnotherLeftUnlocked) {
    smc.write("Ftst", 1);
    EXPECT_EQ(driver.apply(target::Automatic{}), std::nullopt);
    EXPECT_EQ(smc.read("Ftst"), 0);
}

TEST_F(FanDriving, HandsAllFansBackWhateverStateTheyAreIn) {
    FanDriver(smc).apply(target::Speed{1});
    EXPECT_EQ(driver.handBack(), std::nullopt);
    EXPECT_FALSE(smc.fan(0).manual || smc.fan(1).manual);
    EXPECT_EQ(smc.read("Ftst"), 0);
    smc.write("Ftst", 1);
    EXPECT_EQ(driver.handBack(), std::nullopt);
    EXPECT_EQ(smc.read("Ftst"), 0);
}

TEST_F(FanDriving, HandsBackThoughTheFansCannotBeCountedAnyMore) {
    driver.apply(target::Speed{1});
    mac.inject("FNum", fault::KernelError{static_cast<IORegistry::Status>(0xe00002d8)});
    EXPECT_EQ(driver.handBack(), std::nullopt);
    EXPECT_FALSE(driver.holds());
    EXPECT_FALSE(smc.fan(0).manual || smc.fan(1).manual);
    EXPECT_EQ(smc.read("Ftst"), 0);
}

TEST_F(FanDriving, HandsBackWhatItPreparedForThoughItNeverDroveIt) {
    FanDriver other(smc);
    other.apply(target::Speed{1});
    driver.prepare();
    mac.inject("FNum", fault::RefusedValue{133});
    EXPECT_EQ(driver.handBack(), std::nullopt);
    EXPECT_FALSE(smc.fan(0).manual || smc.fan(1).manual);
}

TEST_F(FanDriving, HandsBackWhatHasAModeThoughTheFansCouldNeverBeCounted) {
    FanDriver(smc).apply(target::Speed{1});
    mac.inject("FNum", fault::RefusedValue{133});
    EXPECT_EQ(driver.handBack(), "FNum: SMC error 133") << "there may be more fans than it found";
    EXPECT_FALSE(smc.fan(0).manual || smc.fan(1).manual);
    EXPECT_EQ(smc.read("Ftst"), 0);
}

TEST_F(FanDriving, LeavesNoFanAtItsSpeedOnceTheFansCannotBeCounted) {
    driver.apply(target::Speed{0});
    mac.inject("FNum", fault::RefusedValue{133});
    EXPECT_EQ(driver.apply(target::Speed{1}), "FNum: SMC error 133");
    EXPECT_FALSE(smc.fan(0).manual || smc.fan(1).manual);
    mac.heal("FNum");
    EXPECT_EQ(driver.apply(target::Speed{1}), std::nullopt);
    EXPECT_EQ(smc.fan(1).target, 6241);
}

TEST_F(FanDriving, TakesASilentControllerForNoneThatHasHandedBack) {
    driver.apply(target::Speed{1});
    mac.failEveryCall(static_cast<IORegistry::Status>(0xe00002d8));
    EXPECT_NE(driver.handBack(), std::nullopt);
    EXPECT_TRUE(driver.holds());
    mac.failEveryCall(std::nullopt);
    EXPECT_EQ(driver.handBack(), std::nullopt);
}

TEST_F(FanDriving, LooksAgainWhetherTheFansAreUnlockedWhenItCouldNotAtFirst) {
    smc.write("Ftst", 1);
    mac.inject("Ftst", fault::RefusedValue{133});
    driver.apply(target::Automatic{});
    mac.heal("Ftst");
    EXPECT_EQ(driver.apply(target::Automatic{}), std::nullopt);
    EXPECT_EQ(smc.read("Ftst"), 0);
}

TEST_F(FanDriving, HoldsAFanThatItFindsManualAtItsTarget) {
    FanDriver(smc).apply(target::Speed{0.5});
    const std::size_t before = mac.calls().writes;
    EXPECT_EQ(driver.apply(target::Speed{0.5}), std::nullopt);
    EXPECT_EQ(mac.calls().writes, before) << "nothing needed to be written";
    EXPECT_TRUE(driver.holds());
    mac.inject("F0md", fault::RefusedValue{133});
    EXPECT_NE(driver.apply(target::Automatic{}), std::nullopt);
    EXPECT_TRUE(driver.holds());
    mac.heal("F0md");
    EXPECT_EQ(driver.apply(target::Automatic{}), std::nullopt);
    EXPECT_FALSE(driver.holds());
}

TEST_F(FanDriving, HoldsAFanThatItFindsManualWhenItShouldBeAutomatic) {
    FanDriver(smc).apply(target::Speed{0});
    mac.inject("F1md", fault::Stuck{});
    EXPECT_EQ(driver.apply(target::Automatic{}), "fan 1 is still manual");
    EXPECT_TRUE(driver.holds());
}

TEST_F(FanDriving, HandsAFanBackThatItFindsManualAndCannotDrive) {
    FanDriver(smc).apply(target::Speed{0});
    for (const char* const limit : {"F0Mn", "F1Ac"})
        mac.inject(limit, fault::KernelError{static_cast<IORegistry::Status>(0xe00002d8)});
    EXPECT_EQ(driver.apply(target::Speed{0}), "F0Mn: IOKit error 0xe00002d8");
    EXPECT_EQ(smc.read("F0md"), 0);
    EXPECT_EQ(smc.read("F1md"), 0);
    EXPECT_TRUE(driver.holds()) << "they are unlocked";
}

TEST_F(FanDriving, WritesNothingToAnAutomaticFanThatItCannotDrive) {
    mac.inject("F0Mn", fault::RefusedValue{133});
    mac.inject("F1Mn", fault::RefusedValue{133});
    EXPECT_EQ(driver.apply(target::Speed{0}), "F0Mn: SMC error 133");
    EXPECT_EQ(mac.calls().writes, 0U);
}

TEST_F(FanDriving, TakesNoWriteThatSucceedsForAHandBack) {
    driver.apply(target::Speed{1});
    for (const auto& [key, told] :
         {std::pair("F0md", "fan 0 is still manual"), std::pair("F1md", "fan 1 is still manual"),
          std::pair("Ftst", "the fans are still unlocked")}) {
        smc.setSpeed(0, 3000);
        smc.setSpeed(1, 3000);
        mac.inject(key, fault::Stuck{});
        EXPECT_EQ(driver.handBack(), told);
        EXPECT_EQ(driver.apply(target::Automatic{}), told) << "it is tried again";
        EXPECT_TRUE(driver.holds());
        mac.heal(key);
        EXPECT_EQ(driver.apply(target::Automatic{}), std::nullopt);
        EXPECT_FALSE(driver.holds());
    }
}

TEST_F(FanDriving, TakesAFanWhoseModeCannotBeToldForManual) {
    mac.inject("F1md", fault::KernelError{static_cast<IORegistry::Status>(0xe00002d8)});
    EXPECT_NE(driver.apply(target::Automatic{}), std::nullopt);
    EXPECT_TRUE(driver.holds());
    mac.heal("F1md");
    EXPECT_EQ(driver.apply(target::Automatic{}), std::nullopt);
    EXPECT_FALSE(driver.holds());
}

TEST_F(FanDriving, IsContentInADryRunWithWhatItPretends) {
    FanDriver(smc).apply(target::Speed{1});
    ReadOnlyRegistry readOnly(mac);
    SMC looking(readOnly);
    FanDriver pretending(looking, AgentStatus::Writing::pretended);
    EXPECT_EQ(pretending.apply(target::Automatic{}), std::nullopt);
    EXPECT_EQ(pretending.handBack(), std::nullopt);
    EXPECT_FALSE(pretending.holds());
    EXPECT_TRUE(smc.fan(0).manual);
    mac.failEveryCall(static_cast<IORegistry::Status>(0xe00002d8));
    EXPECT_NE(pretending.handBack(), std::nullopt);
}

TEST_F(FanDriving, NeedsTheFansUnlocked) {
    mac.inject("Ftst", fault::Refused{132});
    EXPECT_EQ(driver.apply(target::Speed{1}), "F0md: SMC error 134");
}

TEST(FanDriver, HasNothingToDoWithoutFans) {
    SimulatedMac mac({.scenario = Scenario::idle, .fans = 0, .fillers = 0});
    SMC smc(mac);
    FanDriver driver(smc);
    EXPECT_EQ(driver.apply(target::Speed{1}), std::nullopt);
    EXPECT_EQ(driver.apply(target::Automatic{}), std::nullopt);
    EXPECT_EQ(mac.calls().writes, 0U);
}

/// A controller with one fan and whatever a test makes of its keys.
class OddController : public testing::Test {
  protected:
    OddController() {
        registry.setByte("FNum", 1);
        registry.setFloat("F0Ac", 1200);
        registry.setFloat("F0Tg", 1200);
        registry.setFloat("F0Mn", 1200);
        registry.setFloat("F0Mx", 6000);
        registry.setByte("Ftst", 0);
    }

    test::ScriptedRegistry registry;
    SMC smc{registry};
    FanDriver driver{smc};
};

TEST_F(OddController, IsLockedBesideAFanThatRefusesForGood) {
    registry.setByte("FNum", 3);
    registry.setByte("F0md", 1);
    registry.setByte("F2md", 1);
    registry.setByte("Ftst", 1);
    // The second fan has no mode, and the first one takes none.
    registry.fail("F0md", test::ScriptedRegistry::write, {0, 133});
    EXPECT_NE(driver.handBack(), std::nullopt);
    EXPECT_EQ(smc.read("F2md"), 0);
    EXPECT_EQ(smc.read("Ftst"), 1) << "a fan is manual";
    registry.setByte("F0md", 0);
    EXPECT_EQ(driver.handBack(), std::nullopt) << "no fan that has a mode is manual";
    EXPECT_EQ(smc.read("Ftst"), 0);
}

TEST_F(OddController, HasNotHandedBackWhatItCouldNotBeAskedFor) {
    constexpr auto deviceError = static_cast<IORegistry::Status>(0xe00002ca);
    registry.setByte("F0md", 1);
    registry.setByte("Ftst", 1);
    for (const char* const key : {"F0md", "F0Md", "Ftst"}) {
        registry.fail(key, test::ScriptedRegistry::keyInformation, {deviceError, 0});
        // What was described once is not asked for again, so each is a connection of its own.
        SMC fresh(registry);
        FanDriver other(fresh);
        const bool matters = key != std::string("F0Md");
        EXPECT_EQ(other.handBack().has_value(), matters) << key;
        EXPECT_EQ(other.holds(), matters) << key;
        registry.succeed(key, test::ScriptedRegistry::keyInformation);
        EXPECT_EQ(other.handBack(), std::nullopt) << key;
        EXPECT_EQ(fresh.read("F0md"), 0) << key;
        EXPECT_EQ(fresh.read("Ftst"), 0) << key;
        registry.setByte("F0md", 1);
        registry.setByte("Ftst", 1);
    }
}

TEST_F(OddController, IsNotPreparedForUntilItDescribesWhatItHas) {
    registry.setByte("F0md", 1);
    for (const char* const key : {"F0md", "Ftst"}) {
        registry.fail(key, test::ScriptedRegistry::keyInformation, {0, 133});
        SMC fresh(registry);
        EXPECT_THROW(FanDriver(fresh).prepare(), SMCError) << key;
        registry.succeed(key, test::ScriptedRegistry::keyInformation);
        FanDriver(fresh).prepare();
    }
    driver.prepare();
    registry.takeRequests();
    EXPECT_EQ(driver.handBack(), std::nullopt);
    EXPECT_EQ(registry.takeRequests(),
              (std::vector<std::string>{"read FNum", "read FNum", "write F0md 00", "write Ftst 00",
                                        "read F0md", "read Ftst"}));
}

TEST_F(OddController, MayHaveNeitherModesNorALock) {
    registry.remove("Ftst");
    driver.prepare();
    EXPECT_EQ(driver.handBack(), std::nullopt);
}

TEST_F(OddController, LosesNoFanByNotCountingIt) {
    registry.setByte("FNum", 2);
    registry.setByte("F0md", 1);
    registry.setByte("F1md", 1);
    driver.prepare();
    registry.setByte("FNum", 1);
    EXPECT_EQ(driver.handBack(), std::nullopt);
    EXPECT_EQ(smc.read("F0md"), 0);
    EXPECT_EQ(smc.read("F1md"), 0);
    EXPECT_EQ(driver.apply(target::Speed{0.5}), std::nullopt) << "then there is one fan";
    registry.setByte("FNum", 0);
    EXPECT_EQ(driver.apply(target::Speed{0.5}), "FNum: 0 of 1 fans");
    EXPECT_EQ(smc.read("F0md"), 0);
    EXPECT_FALSE(driver.holds());
}

TEST_F(OddController, HasNoSpeedBetweenLimitsThatAreReversedOrNone) {
    registry.setByte("F0md", 0);
    for (const float lowest : {1e30F, 7000.0F, std::numeric_limits<float>::infinity(),
                               std::numeric_limits<float>::quiet_NaN()}) {
        registry.setFloat("F0Mn", lowest);
        EXPECT_EQ(driver.apply(target::Speed{0.5}), "fan 0 has no limits");
    }
}

TEST_F(OddController, HasNoSpeedBetweenLimitsThatNoFanCanHave) {
    registry.setByte("F0md", 0);
    registry.set("F0Tg", {"fpe2", test::bytesOf({0, 0}), std::nullopt});
    for (const float most : {3e38F, 1e9F, 16001.0F}) {
        registry.setFloat("F0Mx", most);
        EXPECT_EQ(driver.apply(target::Speed{1}), "fan 0 has no limits") << most;
    }
    registry.setFloat("F0Mx", 6000);
    registry.setFloat("F0Mn", -3e38F);
    EXPECT_EQ(driver.apply(target::Speed{0}), "fan 0 has no limits");
    registry.setFloat("F0Mn", 0);
    EXPECT_EQ(driver.apply(target::Speed{0}), std::nullopt);
}

TEST_F(OddController, IsNotBelievedToHaveBillionsOfFans) {
    registry.set("FNum", {"ui32", test::bytesOf({255, 255, 255, 255}), std::nullopt});
    EXPECT_EQ(driver.apply(target::Speed{0.5}), "FNum: 4294967295 fans");
    EXPECT_EQ(driver.apply(target::Automatic{}), "FNum: 4294967295 fans");
}

TEST_F(OddController, MayCountItsFansByWhatIsNoNumber) {
    for (const float count : {std::nanf(""), 3e38F, -3.0F}) {
        registry.setFloat("FNum", count);
        EXPECT_EQ(driver.apply(target::Speed{0.5}), "FNum: no number of fans") << count;
        EXPECT_EQ(driver.apply(target::Automatic{}), "FNum: no number of fans") << count;
    }
}

TEST_F(OddController, HasNothingToGiveBackWhenItsFanHasNoMode) {
    EXPECT_NE(driver.apply(target::Speed{0.5}), std::nullopt);
    EXPECT_EQ(driver.apply(target::Automatic{}), std::nullopt);
}

} // namespace
} // namespace tervale
