#include "SMC/Believable.h"
#include "SMC/ErrorOf.h"
#include "SMC/SMC.h"
#include "SMC/ScriptedRegistry.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tervale;
using test::bytesOf;
using test::errorOf;
using test::ScriptedRegistry;

namespace {

const std::string zeros(4, '\0');

struct Counts : testing::Test {
    ScriptedRegistry registry;
    SMC smc{registry};
};

} // namespace

TEST_F(Counts, AreTheValuesOfTheirKeysTruncated) {
    registry.set("#KEY", {"ui32", bytesOf({0, 0, 4, 210}), {}});
    registry.setByte("FNum", 2);
    EXPECT_EQ(smc.keyCount(), 1234);
    EXPECT_EQ(smc.fanCount(), 2);
    registry.takeRequests();
    smc.keyCount();
    EXPECT_EQ(registry.takeRequests(), std::vector<std::string>{"read #KEY"});
}

TEST_F(Counts, DropTheFractionTowardZero) {
    registry.setFloat("#KEY", 7.9F);
    registry.setFloat("FNum", -0.9F);
    EXPECT_EQ(smc.keyCount(), 7);
    EXPECT_EQ(smc.fanCount(), 0);
}

TEST_F(Counts, FailWhenTheirKeysDo) {
    EXPECT_EQ(errorOf([&] { smc.keyCount(); }), "#KEY: SMC error 132");
    EXPECT_EQ(errorOf([&] { smc.fanCount(); }), "FNum: SMC error 132");
}

TEST_F(Counts, StopTheProcessWhenTheyAreNoInteger) {
    for (const float value : {std::numeric_limits<float>::quiet_NaN(),
                              std::numeric_limits<float>::infinity(), 1e19F, -1e19F}) {
        registry.setFloat("#KEY", value);
        registry.setFloat("FNum", value);
        EXPECT_DEATH(smc.keyCount(), "no 64-bit integer") << value;
        EXPECT_DEATH(smc.fanCount(), "no 64-bit integer") << value;
    }
}

TEST_F(Counts, AreErrorsForWhoDoesNotBelieveThem) {
    for (const float value : {std::numeric_limits<float>::quiet_NaN(),
                              std::numeric_limits<float>::infinity(), 1e19F, -1e19F, -1.0F}) {
        registry.setFloat("#KEY", value);
        registry.setFloat("FNum", value);
        EXPECT_EQ(errorOf([&] { believable::keyCount(smc); }), "#KEY: no number of keys") << value;
        EXPECT_EQ(errorOf([&] { believable::fanCount(smc); }), "FNum: no number of fans") << value;
    }
    registry.setFloat("#KEY", 65537);
    registry.setFloat("FNum", 101);
    EXPECT_EQ(errorOf([&] { believable::keyCount(smc); }), "#KEY: 65537 keys");
    EXPECT_EQ(errorOf([&] { believable::fanCount(smc); }), "FNum: 101 fans");
    registry.setFloat("#KEY", 65536);
    registry.setFloat("FNum", -0.5F);
    EXPECT_EQ(believable::keyCount(smc), 65536);
    EXPECT_EQ(believable::fanCount(smc), 0);
}

TEST_F(Counts, OfKeysBoundTheIndicesThatHaveNames) {
    registry.setByte("Ftst", 0);
    registry.setFloat("Tp09", 40);
    EXPECT_EQ(smc.key(0), "Ftst");
    EXPECT_EQ(smc.key(1), "Tp09");
    EXPECT_EQ(errorOf([&] { smc.key(2); }), zeros + ": SMC error 132");
}

TEST_F(Counts, AskForAnIndexEveryTime) {
    registry.setByte("Ftst", 0);
    smc.key(0);
    smc.key(0);
    EXPECT_EQ(registry.takeRequests(), (std::vector<std::string>{"index 0", "index 0"}));
}

TEST_F(Counts, TellFailuresByIndexUnderAKeyOfZeros) {
    registry.failIndex(3, {static_cast<IORegistry::Status>(0xE00002C2), 0});
    registry.failIndex(4, {0, 9});
    EXPECT_EQ(errorOf([&] { smc.key(3); }), zeros + ": IOKit error 0xe00002c2");
    EXPECT_EQ(errorOf([&] { smc.key(4); }), zeros + ": SMC error 9");
}

TEST_F(Counts, GiveAQuestionMarkForANameThatIsNotASCII) {
    registry.setByte("T\xFF\xFF\xFF", 0);
    EXPECT_EQ(smc.key(0), "?");
}

TEST_F(Counts, StopTheProcessForAnIndexBeyond32Bits) {
    EXPECT_EQ(errorOf([&] { smc.key(4294967295); }), zeros + ": SMC error 132");
    EXPECT_DEATH(smc.key(-1), "must fit 32 bits");
    EXPECT_DEATH(smc.key(4294967296), "must fit 32 bits");
    EXPECT_DEATH(smc.key(std::numeric_limits<std::int64_t>::min()), "must fit 32 bits");
}
