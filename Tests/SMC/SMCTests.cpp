#include "SMC/ErrorOf.h"
#include "SMC/SMC.h"
#include "SMC/ScriptedRegistry.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>

using namespace tervale;
using test::bytesOf;
using test::errorOf;
using test::ScriptedRegistry;

namespace {

using Lines = std::vector<std::string>;
constexpr IORegistry::Status notPrivileged = static_cast<IORegistry::Status>(0xE00002C2);

struct Keys : testing::Test {
    ScriptedRegistry registry;
    SMC smc{registry};

    std::string readError(const std::string& key) {
        return errorOf([&] { smc.read(key); });
    }
    std::string writeError(const std::string& key, double value) {
        return errorOf([&] { smc.write(key, value); });
    }
};

} // namespace

TEST_F(Keys, TellSizeAndType) {
    registry.setFloat("F0Ac", 1200);
    registry.setByte("Ftst", 0);
    EXPECT_EQ(smc.info("F0Ac"), (SMC::Info{4, "flt "}));
    EXPECT_EQ(smc.info("Ftst"), (SMC::Info{1, "ui8 "}));
}

TEST_F(Keys, AreDescribedOnceAndThenReadInASingleCall) {
    registry.setFloat("F0Ac", 1200);
    smc.info("F0Ac");
    EXPECT_EQ(smc.read("F0Ac"), 1200.0);
    EXPECT_TRUE(smc.exists("F0Ac"));
    registry.setFloat("F0Ac", 1300);
    EXPECT_EQ(smc.read("F0Ac"), 1300.0);
    smc.write("F0Ac", 1400);
    EXPECT_EQ(registry.takeRequests(),
              (Lines{"info F0Ac", "read F0Ac", "read F0Ac", "write F0Ac 00 00 af 44"}));
}

TEST_F(Keys, AreNeverDescribedAgain) {
    registry.setFloat("F0Ac", 1200);
    smc.info("F0Ac");
    registry.remove("F0Ac");
    EXPECT_EQ(smc.info("F0Ac"), (SMC::Info{4, "flt "}));
    EXPECT_EQ(readError("F0Ac"), "F0Ac: SMC error 132");
    EXPECT_TRUE(smc.exists("F0Ac"));
}

TEST_F(Keys, AreDescribedAnewToEachObject) {
    registry.setFloat("F0Ac", 1200);
    smc.info("F0Ac");
    SMC second(registry);
    second.info("F0Ac");
    EXPECT_EQ(registry.takeRequests(), (Lines{"info F0Ac", "info F0Ac"}));
}

TEST_F(Keys, OfEveryReadableTypeAreRead) {
    registry.setFixedPoint("F0Mn", 4803);
    registry.set("flg0", {"flag", bytesOf({7, 8}), {}});
    registry.set("two0", {"ui16", bytesOf({1, 2}), {}});
    registry.set("four", {"ui32", bytesOf({1, 0, 0, 0}), {}});
    registry.set("none", {"ui8 ", {}, {}});
    EXPECT_EQ(smc.read("F0Mn"), 1200.75);
    EXPECT_EQ(smc.read("flg0"), 7.0);
    EXPECT_EQ(smc.read("two0"), 258.0);
    EXPECT_EQ(smc.read("four"), 16777216.0);
    EXPECT_EQ(smc.read("none"), 0.0);
}

TEST_F(Keys, ThatTheCallFailsForAreTheSystemsErrors) {
    registry.setFloat("F0Ac", 1200);
    registry.fail("F0Ac", ScriptedRegistry::keyInformation, {notPrivileged, 0});
    EXPECT_EQ(errorOf([&] { smc.info("F0Ac"); }), "F0Ac: IOKit error 0xe00002c2");
    registry.fail("F0Ac", ScriptedRegistry::keyInformation, {5, 0});
    EXPECT_EQ(readError("F0Ac"), "F0Ac: IOKit error 0x5");
    registry.succeed("F0Ac", ScriptedRegistry::keyInformation);
    registry.fail("F0Ac", ScriptedRegistry::read, {-1, 0});
    EXPECT_EQ(readError("F0Ac"), "F0Ac: IOKit error 0xffffffff");
    registry.fail("F0Ac", ScriptedRegistry::write, {std::numeric_limits<std::int32_t>::min(), 0});
    EXPECT_EQ(writeError("F0Ac", 1), "F0Ac: IOKit error 0x80000000");
}

TEST_F(Keys, ThatTheControllerRefusesAreItsErrors) {
    EXPECT_EQ(readError("Ftst"), "Ftst: SMC error 132");
    registry.setByte("Ftst", 0);
    registry.fail("Ftst", ScriptedRegistry::read, {0, 255});
    EXPECT_EQ(readError("Ftst"), "Ftst: SMC error 255");
    registry.fail("Ftst", ScriptedRegistry::write, {0, 1});
    EXPECT_EQ(writeError("Ftst", 1), "Ftst: SMC error 1");
}

TEST_F(Keys, WorkAgainAfterAFailure) {
    registry.setByte("Ftst", 3);
    registry.fail("Ftst", ScriptedRegistry::read, {0, 1});
    readError("Ftst");
    registry.succeed("Ftst", ScriptedRegistry::read);
    EXPECT_EQ(smc.read("Ftst"), 3.0);
    EXPECT_EQ(registry.takeRequests(), (Lines{"info Ftst", "read Ftst", "read Ftst"}));
}

TEST_F(Keys, OfMoreThan32BytesAreRefusedAndAskedForAgain) {
    registry.set("big0", {"ui8 ", bytesOf({1}), 40});
    EXPECT_EQ(readError("big0"), "big0: size 40 too large");
    EXPECT_EQ(readError("big0"), "big0: size 40 too large");
    EXPECT_EQ(registry.takeRequests(), (Lines{"info big0", "info big0"}));
    registry.set("big0", {"ui8 ", bytesOf({1}), 33});
    EXPECT_EQ(readError("big0"), "big0: size 33 too large");
    registry.set("big0", {"ui8 ", bytesOf({1}), 0xFFFFFFFF});
    EXPECT_EQ(readError("big0"), "big0: size 4294967295 too large");
    registry.set("big0", {"ui8 ", bytesOf({1}), 32});
    EXPECT_EQ(smc.read("big0"), 1.0);
}

TEST_F(Keys, OfUnknownTypesCannotBeReadOrWritten) {
    registry.set("odd0", {"sp78", bytesOf({1, 2}), {}});
    registry.set("odd1", {"\xFFlt ", bytesOf({1, 2, 3, 4}), {}});
    EXPECT_EQ(readError("odd0"), "unsupported type 'sp78' (2 bytes)");
    EXPECT_EQ(writeError("odd0", 1), "unsupported type 'sp78'");
    EXPECT_EQ(readError("odd1"), "unsupported type '?' (4 bytes)");
    EXPECT_EQ(registry.takeRequests(), (Lines{"info odd0", "read odd0", "info odd1", "read odd1"}));
}

TEST_F(Keys, OfAnotherSizeThanTheirTypesAreNotWritten) {
    registry.set("F0Tg", {"fpe2", bytesOf({0, 0, 0, 0}), {}});
    EXPECT_EQ(writeError("F0Tg", 2000), "F0Tg: size mismatch");
    registry.set("flg0", {"flag", {}, {}});
    EXPECT_EQ(writeError("flg0", 1), "flg0: size mismatch");
    EXPECT_EQ(registry.takeRequests(), (Lines{"info F0Tg", "info flg0"}));
}

TEST_F(Keys, AreWrittenInTheirType) {
    registry.setFixedPoint("F0Tg", 0);
    registry.setByte("F0md", 0);
    smc.write("F0Tg", 2000.9);
    smc.write("F0md", 1);
    EXPECT_EQ(registry.key("F0Tg").bytes, bytesOf({0x1F, 0x43}));
    EXPECT_EQ(registry.key("F0md").bytes, bytesOf({1}));
}

TEST_F(Keys, WrittenWithANumberThatTheirTypeCannotHoldStopTheProcess) {
    registry.setFixedPoint("F0Tg", 0);
    EXPECT_DEATH(smc.write("F0Tg", std::numeric_limits<double>::quiet_NaN()), "no 64-bit integer");
}

TEST_F(Keys, ExistWhenTheyCanBeDescribed) {
    registry.setByte("Ftst", 0);
    registry.set("big0", {"ui8 ", bytesOf({1}), 33});
    EXPECT_TRUE(smc.exists("Ftst"));
    EXPECT_FALSE(smc.exists("big0"));
    EXPECT_FALSE(smc.exists("F0Md"));
    EXPECT_FALSE(smc.exists("F0Md"));
    EXPECT_EQ(registry.takeRequests(), (Lines{"info Ftst", "info big0", "info F0Md", "info F0Md"}));
}

TEST_F(Keys, AreMissingOnlyByTheControllersWord) {
    EXPECT_FALSE(smc.has("Ftst"));
    registry.setByte("Ftst", 0);
    registry.fail("Ftst", ScriptedRegistry::keyInformation, {notPrivileged, 0});
    EXPECT_EQ(errorOf([&] { smc.has("Ftst"); }), "Ftst: IOKit error 0xe00002c2");
    registry.fail("Ftst", ScriptedRegistry::keyInformation, {0, 133});
    EXPECT_EQ(errorOf([&] { smc.has("Ftst"); }), "Ftst: SMC error 133");
    registry.succeed("Ftst", ScriptedRegistry::keyInformation);
    EXPECT_TRUE(smc.has("Ftst"));
    smc.info("Ftst");
    registry.takeRequests();
    EXPECT_TRUE(smc.has("Ftst"));
    EXPECT_TRUE(registry.log.empty()) << "a description is kept";
}

TEST_F(Keys, AppearOnceTheControllerKnowsThem) {
    EXPECT_FALSE(smc.exists("Ftst"));
    registry.setByte("Ftst", 0);
    EXPECT_TRUE(smc.exists("Ftst"));
}

TEST_F(Keys, AreDescribedUntilThatSucceedsAndNeverAfterwards) {
    std::mt19937 random(9);
    std::set<std::string> described;
    for (int round = 0; round < 5000; ++round) {
        const std::string key = "Tp0" + std::string(1, static_cast<char>('a' + random() % 20));
        const bool infoFails = random() % 3 == 0;
        const bool readFails = random() % 3 == 0;
        registry.setFloat(key, 40);
        registry.fail(key, ScriptedRegistry::keyInformation, {0, std::uint8_t(infoFails ? 1 : 0)});
        registry.fail(key, ScriptedRegistry::read, {readFails ? 7 : 0, 0});
        const std::string error = readError(key);

        Lines expected;
        if (!described.contains(key))
            expected.push_back("info " + key);
        if (!infoFails)
            described.insert(key);
        if (described.contains(key))
            expected.push_back("read " + key);
        EXPECT_EQ(registry.takeRequests(), expected);
        EXPECT_EQ(error, !described.contains(key) ? key + ": SMC error 1"
                         : readFails              ? key + ": IOKit error 0x7"
                                                  : "no error");
    }
}
