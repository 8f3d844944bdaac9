#include "SMC/ErrorOf.h"
#include "SMC/SMCCodec.h"
#include "SMC/ScriptedRegistry.h"
#include "Support/NotANumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace tervale;
using test::bytesOf;
using test::errorOf;

namespace {

using tervale::test::notANumber;
constexpr double infinity = std::numeric_limits<double>::infinity();

double decode(std::string_view type, std::initializer_list<unsigned> bytes) {
    return SMCCodec::decode(type, bytesOf(bytes));
}

std::string decodeError(std::string_view type, std::size_t count) {
    return errorOf([&] { SMCCodec::decode(type, std::vector<std::byte>(count)); });
}

} // namespace

TEST(FourCC, TakesTheFirstCharacterAsTheMostSignificant) {
    EXPECT_EQ(SMCCodec::fourCC("FNum"), 0x464E756DU);
    EXPECT_EQ(SMCCodec::fourCC("#KEY"), 0x234B4559U);
    EXPECT_EQ(SMCCodec::fourCC("ui8 "), 0x75693820U);
}

TEST(FourCC, NeitherPadsNorChecksTheLength) {
    EXPECT_EQ(SMCCodec::fourCC(""), 0U);
    EXPECT_EQ(SMCCodec::fourCC("F"), 0x46U);
    EXPECT_EQ(SMCCodec::fourCC("Fa"), 0x4661U);
    EXPECT_EQ(SMCCodec::fourCC("F11Mn"), SMCCodec::fourCC("11Mn"));
    EXPECT_EQ(SMCCodec::fourCC("xxxxxxFNum"), SMCCodec::fourCC("FNum"));
}

TEST(FourCC, CountsBytesRatherThanCharacters) {
    EXPECT_EQ(SMCCodec::fourCC("T\xC3\xA4"), 0x54C3A4U);
    EXPECT_EQ(SMCCodec::fourCC("\xFF\xFF\xFF\xFF"), 0xFFFFFFFFU);
}

TEST(FourCCString, GivesTheFourCharacters) {
    EXPECT_EQ(SMCCodec::fourCCString(0x464E756D), "FNum");
    EXPECT_EQ(SMCCodec::fourCCString(0x666C7420), "flt ");
}

TEST(FourCCString, KeepsZeros) {
    EXPECT_EQ(SMCCodec::fourCCString(0), std::string(4, '\0'));
    EXPECT_EQ(SMCCodec::fourCCString(0x4661), std::string("\0\0Fa", 4));
    EXPECT_EQ(SMCCodec::fourCCString(0x54000000), std::string("T\0\0\0", 4));
}

TEST(FourCCString, IsAQuestionMarkWhenAByteIsNotASCII) {
    for (const std::uint32_t code : {0x80000000U, 0x54804142U, 0x5441FF42U, 0x544142C3U, ~0U})
        EXPECT_EQ(SMCCodec::fourCCString(code), "?") << code;
    EXPECT_EQ(SMCCodec::fourCCString(0x7F7F7F7F), "\x7F\x7F\x7F\x7F");
}

TEST(FourCCString, UndoesFourCCForEveryASCIIText) {
    std::mt19937 random(4);
    std::uniform_int_distribution<int> character(0, 127);
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (int i = 0; i < 4; ++i)
            text.push_back(static_cast<char>(character(random)));
        EXPECT_EQ(SMCCodec::fourCCString(SMCCodec::fourCC(text)), text);
    }
}

TEST(Decode, ReadsFloatsInLittleEndianOrder) {
    EXPECT_EQ(decode("flt ", {0x00, 0x00, 0xFA, 0x44}), 2000.0);
    EXPECT_EQ(decode("flt ", {0xCD, 0xCC, 0xCC, 0xBD}), static_cast<double>(-0.1F));
    EXPECT_EQ(decode("flt ", {0x00, 0x00, 0x80, 0x7F}), infinity);
    EXPECT_TRUE(std::isnan(decode("flt ", {0x00, 0x00, 0xC0, 0x7F})));
}

TEST(Decode, ReadsFixedPointInBigEndianQuarters) {
    EXPECT_EQ(decode("fpe2", {0x1F, 0x40}), 2000.0);
    EXPECT_EQ(decode("fpe2", {0x1F, 0x43}), 2000.75);
    EXPECT_EQ(decode("fpe2", {0xFF, 0xFF}), 16383.75);
}

TEST(Decode, ReadsTheFirstByteOfBytesAndFlags) {
    for (const char* type : {"ui8 ", "flag"}) {
        EXPECT_EQ(decode(type, {}), 0.0);
        EXPECT_EQ(decode(type, {255}), 255.0);
        EXPECT_EQ(decode(type, {1, 9, 9}), 1.0);
    }
}

TEST(Decode, ReadsIntegersInBigEndianOrder) {
    EXPECT_EQ(decode("ui16", {0x01, 0x02}), 258.0);
    EXPECT_EQ(decode("ui16", {0xFF, 0xFE}), 65534.0);
    EXPECT_EQ(decode("ui32", {0x01, 0x02, 0x03, 0x04}), 16909060.0);
    EXPECT_EQ(decode("ui32", {0xFF, 0xFF, 0xFF, 0xFF}), 4294967295.0);
}

TEST(Decode, RefusesEveryOtherCountOfBytes) {
    const std::pair<const char*, std::size_t> sizes[] = {
        {"flt ", 4}, {"fpe2", 2}, {"ui16", 2}, {"ui32", 4}};
    for (const auto& [type, size] : sizes) {
        for (std::size_t count = 0; count <= 32; ++count) {
            const std::string expected = count == size
                                             ? "no error"
                                             : "unsupported type '" + std::string(type) + "' (" +
                                                   std::to_string(count) + " bytes)";
            EXPECT_EQ(decodeError(type, count), expected);
        }
    }
    EXPECT_EQ(decodeError("flt ", 2), "unsupported type 'flt ' (2 bytes)");
    EXPECT_EQ(decodeError("ui16", 1), "unsupported type 'ui16' (1 bytes)");
}

TEST(Decode, RefusesUnknownTypes) {
    EXPECT_EQ(decodeError("sp78", 2), "unsupported type 'sp78' (2 bytes)");
    EXPECT_EQ(decodeError("ui8", 1), "unsupported type 'ui8' (1 bytes)");
    EXPECT_EQ(decodeError("flt", 4), "unsupported type 'flt' (4 bytes)");
    EXPECT_EQ(decodeError("FLT ", 4), "unsupported type 'FLT ' (4 bytes)");
    EXPECT_EQ(decodeError("", 0), "unsupported type '' (0 bytes)");
    EXPECT_EQ(decodeError("?", 0), "unsupported type '?' (0 bytes)");
}

TEST(Encode, WritesFloatsInLittleEndianOrder) {
    EXPECT_EQ(SMCCodec::encode("flt ", 2000.0), bytesOf({0x00, 0x00, 0xFA, 0x44}));
    EXPECT_EQ(SMCCodec::encode("flt ", 0.1), bytesOf({0xCD, 0xCC, 0xCC, 0x3D}));
    EXPECT_EQ(SMCCodec::encode("flt ", -0.0), bytesOf({0x00, 0x00, 0x00, 0x80}));
}

TEST(Encode, NarrowsFloatsWithoutCheckingTheirRange) {
    EXPECT_EQ(SMCCodec::encode("flt ", 1e300), bytesOf({0x00, 0x00, 0x80, 0x7F}));
    EXPECT_EQ(SMCCodec::encode("flt ", -infinity), bytesOf({0x00, 0x00, 0x80, 0xFF}));
    EXPECT_EQ(SMCCodec::encode("flt ", 1e-300), bytesOf({0, 0, 0, 0}));
    EXPECT_TRUE(std::isnan(SMCCodec::decode("flt ", SMCCodec::encode("flt ", notANumber))));
}

TEST(Encode, TruncatesFixedPointToQuarters) {
    EXPECT_EQ(SMCCodec::encode("fpe2", 2000.0), bytesOf({0x1F, 0x40}));
    EXPECT_EQ(SMCCodec::encode("fpe2", 2000.9), bytesOf({0x1F, 0x43}));
    EXPECT_EQ(SMCCodec::encode("fpe2", 0.24), bytesOf({0, 0}));
    EXPECT_EQ(SMCCodec::encode("fpe2", 0.25), bytesOf({0, 1}));
}

TEST(Encode, ClampsFixedPointTo16Bits) {
    EXPECT_EQ(SMCCodec::encode("fpe2", 16383.75), bytesOf({0xFF, 0xFF}));
    EXPECT_EQ(SMCCodec::encode("fpe2", 16384.0), bytesOf({0xFF, 0xFF}));
    EXPECT_EQ(SMCCodec::encode("fpe2", 2e18), bytesOf({0xFF, 0xFF}));
    EXPECT_EQ(SMCCodec::encode("fpe2", -0.3), bytesOf({0, 0}));
    EXPECT_EQ(SMCCodec::encode("fpe2", -2e18), bytesOf({0, 0}));
}

TEST(Encode, TruncatesAndClampsBytesAndFlags) {
    for (const char* type : {"ui8 ", "flag"}) {
        EXPECT_EQ(SMCCodec::encode(type, 1.0), bytesOf({1}));
        EXPECT_EQ(SMCCodec::encode(type, 0.99), bytesOf({0}));
        EXPECT_EQ(SMCCodec::encode(type, 255.9), bytesOf({255}));
        EXPECT_EQ(SMCCodec::encode(type, 300.0), bytesOf({255}));
        EXPECT_EQ(SMCCodec::encode(type, 1000.0), bytesOf({255}));
        EXPECT_EQ(SMCCodec::encode(type, -3.0), bytesOf({0}));
        EXPECT_EQ(SMCCodec::encode(type, -9223372036854775808.0), bytesOf({0}));
    }
}

TEST(Encode, RefusesTypesThatAreOnlyReadAndUnknownOnes) {
    for (const char* type : {"ui16", "ui32", "sp78", "ui8", "flt", "Flag", "?", ""})
        EXPECT_EQ(errorOf([&] { SMCCodec::encode(type, 5.0); }),
                  "unsupported type '" + std::string(type) + "'");
    // The type is judged before the value.
    EXPECT_EQ(errorOf([] { SMCCodec::encode("ui16", notANumber); }), "unsupported type 'ui16'");
}

TEST(Encode, StopsTheProcessForNumbersThatAreNoInteger) {
    for (const char* type : {"fpe2", "ui8 ", "flag"}) {
        for (const double value : {notANumber, infinity, -infinity, 9223372036854775808.0, -1e19})
            EXPECT_DEATH(SMCCodec::encode(type, value), "no 64-bit integer") << type << value;
    }
    // Four times as much no longer fits.
    EXPECT_DEATH(SMCCodec::encode("fpe2", 2305843009213693952.0), "no 64-bit integer");
}

TEST(Codec, GivesEveryFloatBack) {
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (std::isnan(value))
            continue;
        EXPECT_EQ(SMCCodec::decode("flt ", SMCCodec::encode("flt ", static_cast<double>(value))),
                  static_cast<double>(value));
    }
}

TEST(Codec, GivesEveryFixedPointAndByteBack) {
    for (unsigned raw = 0; raw < 65536; ++raw) {
        const auto bytes = bytesOf({raw >> 8, raw & 255U});
        EXPECT_EQ(SMCCodec::encode("fpe2", SMCCodec::decode("fpe2", bytes)), bytes);
    }
    for (unsigned raw = 0; raw < 256; ++raw)
        EXPECT_EQ(SMCCodec::encode("ui8 ", decode("ui8 ", {raw})), bytesOf({raw}));
}

TEST(Codec, LosesLessThanAQuarterToFixedPoint) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> speed(0, 16383.75);
    for (int round = 0; round < 20000; ++round) {
        const double value = speed(random);
        const double loss = value - SMCCodec::decode("fpe2", SMCCodec::encode("fpe2", value));
        EXPECT_GE(loss, 0.0) << value;
        EXPECT_LT(loss, 0.25) << value;
    }
}
