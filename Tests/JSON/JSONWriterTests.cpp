#include "JSON/Decoded.h"
#include "JSON/Sample.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace tervale {

using test::decoded;

TEST(JSONWriter, WritesAnObjectCompactAndInTheOrderOfTheCalls) {
    const Sample sample{1.5, "n", {{2}, {3}}};
    const std::string text = R"({"number":1.5,"note":"n","parts":[{"number":2},{"number":3}]})";
    EXPECT_EQ(encode(sample), text);
    EXPECT_EQ(decoded<Sample>(text), sample);
    EXPECT_EQ(encode(std::vector<Sample>()), "[]");
}

TEST(JSONWriter, EscapesStrings) {
    const std::string value = "a/b\\c\"d\n\t\x01 \xC3\xA9 \xF0\x9F\x8C\x80";
    const std::string text = encode(value);
    EXPECT_EQ(text, "\"a\\/b\\\\c\\\"d\\n\\t\\u0001 \xC3\xA9 \xF0\x9F\x8C\x80\"");
    EXPECT_EQ(decoded<std::string>(text), value);
}

TEST(JSONWriter, KeepsAZeroCharacterInAString) {
    const std::string value("a\0b", 3);
    EXPECT_EQ(decoded<std::string>(encode(value)), value);
}

TEST(JSONWriter, RepairsIllFormedUTF8) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(decoded<std::string>(encode(std::string("a\xFF"
                                                      "b\xE2\x82"))),
              "a" + replacement + "b" + replacement);
}

TEST(JSONWriter, WritesWholeNumbersWithoutAFraction) {
    EXPECT_EQ(encode(1.0), "1");
    EXPECT_EQ(encode(-3.0), "-3");
    EXPECT_EQ(encode(-0.0), "-0");
    EXPECT_EQ(encode(9007199254740992.0), "9007199254740992");
    EXPECT_EQ(encode(1e300), "1e+300");
    EXPECT_EQ(encode(0.1), "0.1");
}

TEST(JSONWriter, RefusesNumbersThatAreNotFinite) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double number : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_THROW(encode(Sample{number}), EncodingError);
    try {
        encode(infinity);
        FAIL();
    } catch (const EncodingError& error) {
        EXPECT_STREQ(error.what(), "A number is not finite.");
    }
}

TEST(JSONWriter, RefusesATextThatWouldNotBeReadBack) {
    const std::string longest(maximumJSONSize - 2, 'x');
    EXPECT_EQ(decoded<std::string>(encode(longest)), longest);
    try {
        encode(longest + "x");
        FAIL();
    } catch (const EncodingError& error) {
        EXPECT_STREQ(error.what(), "The text would be longer than 16777216 bytes.");
    }
}

} // namespace tervale
