#include "SMC/ErrorOf.h"
#include "SMC/Fan.h"
#include "SMC/SMC.h"
#include "SMC/ScriptedRegistry.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tervale;
using test::errorOf;
using test::ScriptedRegistry;

namespace {

using Lines = std::vector<std::string>;

struct Fans : testing::Test {
    ScriptedRegistry registry;
    SMC smc{registry};

    void addFan(const std::string& name, const std::string& mode = "md") {
        registry.setFloat(name + "Ac", 1350.5F);
        registry.setFloat(name + "Tg", 1400);
        registry.setFloat(name + "Mn", 1200);
        registry.setFloat(name + "Mx", 6500.5F);
        registry.setByte(name + mode, 0);
    }
    void SetUp() override {
        registry.setByte("FNum", 2);
        addFan("F0");
        addFan("F1");
    }
};

} // namespace

TEST_F(Fans, AreReadInOrderActualTargetLimitsMode) {
    EXPECT_EQ(smc.fan(0), (Fan{0, 1350.5, 1400, 1200, 6500.5, false}));
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"info F0Ac", "read F0Ac", "info F0Tg", "read F0Tg", "info F0Mn", "read F0Mn",
                     "info F0Mx", "read F0Mx", "info F0md", "read F0md"}));
    smc.fan(0);
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"read F0Ac", "read F0Tg", "read F0Mn", "read F0Mx", "read F0md"}));
}

TEST_F(Fans, AreManualWhenTheModeIsNotZero) {
    for (const auto mode : std::vector<std::uint8_t>{1, 2, 255}) {
        registry.setByte("F0md", mode);
        EXPECT_TRUE(smc.fan(0).manual);
    }
    registry.set("F1md", {"flt ", test::bytesOf({0, 0, 0, 0x80}), {}});
    EXPECT_FALSE(smc.fan(1).manual) << "minus zero is zero";
}

TEST_F(Fans, HaveTheirModeUnderEitherSpelling) {
    registry.remove("F1md");
    registry.setByte("F1Md", 1);
    EXPECT_EQ(smc.modeKey(0), "F0md");
    EXPECT_EQ(registry.takeRequests(), Lines{"info F0md"});
    EXPECT_EQ(smc.modeKey(1), "F1Md");
    EXPECT_EQ(registry.takeRequests(), Lines{"info F1md"}) << "the other spelling is not checked";
    EXPECT_TRUE(smc.fan(1).manual);
}

TEST_F(Fans, PreferTheLowerCaseSpelling) {
    registry.setByte("F0Md", 1);
    EXPECT_EQ(smc.modeKey(0), "F0md");
    EXPECT_FALSE(smc.fan(0).manual);
}

TEST_F(Fans, HaveAModeKeyEvenWhenEveryCallFails) {
    registry.fail("F0md", ScriptedRegistry::keyInformation, {-1, 0});
    EXPECT_EQ(smc.modeKey(0), "F0Md");
    EXPECT_EQ(smc.modeKey(11), "F11Md");
}

TEST_F(Fans, HaveNoModeOnlyByTheControllersWord) {
    EXPECT_EQ(smc.knownModeKey(0), "F0md");
    addFan("F1", "Md");
    registry.fail("F1md", ScriptedRegistry::keyInformation, {-1, 0});
    EXPECT_EQ(errorOf([&] { smc.knownModeKey(1); }), "F1md: IOKit error 0xffffffff");
    registry.remove("F1md");
    registry.succeed("F1md", ScriptedRegistry::keyInformation);
    EXPECT_EQ(smc.knownModeKey(1), "F1Md");
    registry.remove("F1Md");
    EXPECT_EQ(smc.knownModeKey(1), std::nullopt);
}

TEST_F(Fans, WithoutAModeAreNotManual) {
    registry.remove("F0md");
    EXPECT_FALSE(smc.fan(0).manual);
    registry.setByte("F1md", 1);
    registry.fail("F1md", ScriptedRegistry::read, {0, 1});
    EXPECT_FALSE(smc.fan(1).manual);
}

TEST_F(Fans, FailWithTheirFirstError) {
    const Lines suffixes{"Ac", "Tg", "Mn", "Mx"};
    for (std::size_t failing = 0; failing < suffixes.size(); ++failing) {
        const std::string key = "F0" + suffixes[failing];
        SMC fresh(registry);
        registry.fail(key, ScriptedRegistry::read, {0, 5});
        registry.takeRequests();
        EXPECT_EQ(errorOf([&] { fresh.fan(0); }), key + ": SMC error 5");
        EXPECT_EQ(registry.takeRequests().size(), 2 * (failing + 1));
        registry.succeed(key, ScriptedRegistry::read);
    }
}

TEST_F(Fans, AreListedInIndexOrder) {
    registry.setByte("F1md", 1);
    EXPECT_EQ(smc.fans(), (std::vector<Fan>{{0, 1350.5, 1400, 1200, 6500.5, false},
                                            {1, 1350.5, 1400, 1200, 6500.5, true}}));
    registry.takeRequests();
    smc.fans();
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"read FNum", "read F0Ac", "read F0Tg", "read F0Mn", "read F0Mx", "read F0md",
                     "read F1Ac", "read F1Tg", "read F1Mn", "read F1Mx", "read F1md"}));
}

TEST_F(Fans, AreNoneWhenTheCountIsZero) {
    registry.setByte("FNum", 0);
    EXPECT_TRUE(smc.fans().empty());
    EXPECT_EQ(registry.takeRequests(), (Lines{"info FNum", "read FNum"}));
}

TEST_F(Fans, AreNotListedAtAllWhenOneFails) {
    registry.remove("F1Mn");
    EXPECT_EQ(errorOf([&] { smc.fans(); }), "F1Mn: SMC error 132");
    registry.remove("FNum");
    EXPECT_EQ(errorOf([&] { SMC(registry).fans(); }), "FNum: SMC error 132");
}

TEST_F(Fans, BeyondTheNinthHaveKeysOfTwoDigits) {
    // Five characters, of which a code keeps the last four.
    registry.setFloat("11Ac", 1);
    registry.setFloat("11Tg", 2);
    registry.setFloat("11Mn", 3);
    registry.setFloat("11Mx", 4);
    EXPECT_EQ(smc.fan(11), (Fan{11, 1, 2, 3, 4, false}));
    registry.remove("11Mn");
    EXPECT_EQ(errorOf([&] { SMC(registry).fan(11); }), "F11Mn: SMC error 132");
}

TEST_F(Fans, StopTheProcessWhenTheirCountIsNoNumberOfFans) {
    for (const float count : {-1.0F, std::numeric_limits<float>::quiet_NaN(), 1e30F}) {
        registry.setFloat("FNum", count);
        SMC fresh(registry);
        EXPECT_DEATH(fresh.fans(), "negative number of fans|no 64-bit integer");
        EXPECT_DEATH(fresh.setSpeed(0, 2000), "negative number of fans|no 64-bit integer");
        EXPECT_DEATH(fresh.setAuto(), "negative number of fans|no 64-bit integer");
    }
}
