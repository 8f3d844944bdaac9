#include "SMC/ErrorOf.h"
#include "SMC/SMC.h"
#include "SMC/SMCStructure.h"
#include "SMC/ScriptedRegistry.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace tervale;
using test::bytesOf;
using test::errorOf;
using test::ScriptedRegistry;

namespace {

using Lines = std::vector<std::string>;

/// An otherwise zero structure with these bytes at these offsets.
IORegistry::Structure
structure(std::initializer_list<std::pair<std::size_t, std::vector<std::byte>>> parts) {
    IORegistry::Structure bytes{};
    for (const auto& [offset, part] : parts)
        std::copy(part.begin(), part.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    return bytes;
}

/// "F0Tg" as it lies in memory.
std::vector<std::byte> targetKey() {
    return bytesOf({'g', 'T', '0', 'F'});
}

} // namespace

TEST(Connection, OpensTheControllersServiceAndReleasesIt) {
    ScriptedRegistry registry;
    const SMC smc(registry);
    EXPECT_EQ(registry.lifecycle, (Lines{"find AppleSMC", "open 77 type 0", "release 77"}));
    EXPECT_TRUE(registry.log.empty());
}

TEST(Connection, IsClosedWithTheObject) {
    ScriptedRegistry registry;
    { const SMC smc(registry); }
    EXPECT_EQ(registry.lifecycle,
              (Lines{"find AppleSMC", "open 77 type 0", "release 77", "close 4242"}));
    EXPECT_EQ(registry.releases, 1);
}

TEST(Connection, FailsWithoutTheService) {
    ScriptedRegistry registry;
    registry.serviceExists = false;
    EXPECT_EQ(errorOf([&] { SMC smc(registry); }), "AppleSMC not found");
    EXPECT_EQ(registry.lifecycle, Lines{"find AppleSMC"});
}

TEST(Connection, ReleasesTheServiceOnceWhenItCannotBeOpened) {
    ScriptedRegistry registry;
    registry.openStatus = -536870201;
    EXPECT_EQ(errorOf([&] { SMC smc(registry); }), "IOServiceOpen failed: -536870201");
    EXPECT_EQ(registry.lifecycle, (Lines{"find AppleSMC", "open 77 type 0", "release 77"}));
    EXPECT_EQ(registry.closes, 0);
}

TEST(Connection, TellsTheStatusOfAFailedOpenAsSignedDecimal) {
    ScriptedRegistry registry;
    registry.openStatus = 5;
    EXPECT_EQ(errorOf([&] { SMC smc(registry); }), "IOServiceOpen failed: 5");
    registry.openStatus = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(errorOf([&] { SMC smc(registry); }), "IOServiceOpen failed: -2147483648");
}

TEST(Connection, PrintsAnErrorAsItsDescription) {
    ScriptedRegistry registry;
    registry.serviceExists = false;
    try {
        const SMC smc(registry);
        FAIL() << "there is no service";
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "AppleSMC not found");
    }
}

TEST(Request, GoesToTheOpenConnectionUnderSelectorTwo) {
    ScriptedRegistry registry;
    registry.setFloat("F0Tg", 2000);
    SMC smc(registry);
    smc.read("F0Tg");
    smc.write("F0Tg", 2500);
    smc.key(0);
    ASSERT_EQ(registry.log.size(), 4U);
    for (const auto& exchange : registry.log) {
        EXPECT_EQ(exchange.selector, 2U);
        EXPECT_EQ(exchange.connection, ScriptedRegistry::connection);
    }
}

TEST(Request, ForInformationHoldsTheKeyAndCommandNine) {
    ScriptedRegistry registry;
    registry.setFloat("F0Tg", 2000);
    SMC smc(registry);
    smc.info("F0Tg");
    EXPECT_EQ(registry.log.at(0).request, structure({{0, targetKey()}, {42, bytesOf({9})}}));
}

TEST(Request, ForAReadHoldsTheKeyItsSizeAndCommandFive) {
    ScriptedRegistry registry;
    registry.setFloat("F0Tg", 2000);
    SMC smc(registry);
    smc.read("F0Tg");
    EXPECT_EQ(registry.log.at(1).request,
              structure({{0, targetKey()}, {28, bytesOf({4})}, {42, bytesOf({5})}}));
}

TEST(Request, ForAWriteHoldsTheKeyItsSizeCommandSixAndTheBytes) {
    ScriptedRegistry registry;
    registry.setFloat("F0Tg", 0);
    SMC smc(registry);
    smc.write("F0Tg", 2000);
    EXPECT_EQ(registry.log.at(1).request, structure({{0, targetKey()},
                                                     {28, bytesOf({4})},
                                                     {42, bytesOf({6})},
                                                     {48, bytesOf({0x00, 0x00, 0xFA, 0x44})}}));
}

TEST(Request, ByIndexHoldsTheIndexCommandEightAndNoKey) {
    ScriptedRegistry registry;
    SMC smc(registry);
    errorOf([&] { smc.key(0x01020304); });
    errorOf([&] { smc.key(0xFFFFFFFF); });
    EXPECT_EQ(registry.log.at(0).request,
              structure({{42, bytesOf({8})}, {44, bytesOf({4, 3, 2, 1})}}));
    EXPECT_EQ(registry.log.at(1).request,
              structure({{42, bytesOf({8})}, {44, bytesOf({255, 255, 255, 255})}}));
}

TEST(SMCStructure, KeepsItsEightyBytesInBothDirections) {
    std::mt19937 random(80);
    for (int round = 0; round < 1000; ++round) {
        IORegistry::Structure bytes;
        for (std::byte& byte : bytes)
            byte = static_cast<std::byte>(random() & 255U);
        const auto value = SMCStructure::fromBytes(bytes);
        EXPECT_EQ(value.toBytes(), bytes);
        EXPECT_EQ(value.dataSize, ScriptedRegistry::word(bytes, 28));
        EXPECT_EQ(value.result, std::to_integer<unsigned>(bytes[40]));
        EXPECT_EQ(value.bytes.back(), bytes[79]);
    }
    EXPECT_EQ(SMCStructure{}.toBytes(), IORegistry::Structure{});
}
