#include "JSON/Decoded.h"
#include "JSON/Sample.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tervale {

using test::decoded;
using test::decodingError;
using Kind = DecodingError::Kind;

TEST(JSONReader, FindsMembersInAnyOrderAndSpelling) {
    EXPECT_EQ(decoded<Sample>(R"({"note":"n","number":2})"), (Sample{2, "n"}));
    EXPECT_EQ(decoded<Sample>(R"( { "\u006eumber" : 2 , "n\u006fte" : "n" } )"), (Sample{2, "n"}));
    EXPECT_EQ(decoded<Sample>(R"({"Number":1,"numbers":3,"number":2})"), (Sample{2}));
}

TEST(JSONReader, TakesTheFirstOfTwoMembersOfTheSameName) {
    EXPECT_EQ(decoded<Sample>(R"({"number":1,"number":2})"), (Sample{1}));
    EXPECT_EQ(decoded<Choice>(R"({"sample":{"_0":{"number":1}},"sample":3})"), Choice(Sample{1}));
}

TEST(JSONReader, SkipsUnknownMembersWhateverTheyHold) {
    for (const char* value :
         {"null", "\"}\"", R"("\"]}")", "[[],{}]", R"({"number":7,"a":[{"number":8}]})", "1e400",
          "-1e999999", "[1e400]", "true"})
        EXPECT_EQ(decoded<Sample>(std::string(R"({"x":)") + value + R"(,"number":1})"), (Sample{1}))
            << value;
    const std::string digits(1000, '9');
    EXPECT_EQ(decoded<Sample>(R"({"number":1,"x":)" + digits + "}"), (Sample{1}));
    EXPECT_EQ(decoded<Choice>(R"({"nothing":{"x":1e400}})"), Choice(Nothing{}));
}

TEST(JSONReader, TakesNullForAbsenceInOptionalMembersOnly) {
    EXPECT_EQ(decoded<Sample>(R"({"number":1,"note":null})"), (Sample{1}));
    EXPECT_EQ(decodingError<Sample>(R"({"number":null})"),
              (DecodingError{Kind::valueNotFound, {"number"}, "Expected a number, found null."}));
}

TEST(JSONReader, WantsExactlyOneCase) {
    for (const char* text : {"{}", R"({"nothing":{},"sample":{"_0":{"number":1}}})", R"({"x":1})",
                             R"({"Nothing":{}})", R"({"sample":null,"nothing":{}})"})
        EXPECT_EQ(
            decodingError<Choice>(text),
            (DecodingError{Kind::typeMismatch, {}, "Invalid number of keys found, expected one."}))
            << text;
    EXPECT_EQ(decodingError<Choice>(R"({"nothing":1})").path, std::vector<std::string>{"nothing"});
}

TEST(JSONReader, TellsWhatIsWrongAndWhere) {
    const DecodingError error =
        decodingError<Sample>(R"({"number":1,"parts":[{"number":1},{"number":"q"}]})");
    EXPECT_EQ(error.kind, Kind::typeMismatch);
    EXPECT_EQ(error.text(), "parts.1.number: Expected a number, found a string.");
    EXPECT_EQ(decodingError<Sample>("{}").text(), "The member \"number\" is missing.");
    EXPECT_EQ(decodingError<Sample>("[]").text(), "Expected an object, found an array.");
    EXPECT_EQ(decodingError<std::vector<double>>("[true]").text(),
              "0: Expected a number, found a truth value.");
    EXPECT_EQ(decodingError<std::string>("1").text(), "Expected a string, found a number.");
    EXPECT_EQ(decodingError<bool>("{}").text(), "Expected a truth value, found an object.");
    EXPECT_EQ(decodingError<std::vector<double>>("null").kind, Kind::valueNotFound);
}

TEST(JSONReader, ReadsStringsAsTheyAreSpelled) {
    EXPECT_EQ(decoded<std::string>(R"("a\"\\\/\b\f\n\r\tz")"), "a\"\\/\b\f\n\r\tz");
    EXPECT_EQ(decoded<std::string>(R"("\u0041\u00e9\u20AC\uD83c\udf00\u0000")"),
              std::string("A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8C\x80\0", 11));
    EXPECT_EQ(decoded<std::vector<std::string>>(R"(["a]","b\\","\\\"]"])"),
              (std::vector<std::string>{"a]", "b\\", "\\\"]"}));
}

TEST(JSONReader, RefusesANumberBeyondADoubleWhereItIsRead) {
    for (const char* text : {"1e400", "-1e400", "1e999999999999999999999"}) {
        const DecodingError error =
            decodingError<Sample>(std::string(R"({"number":)") + text + "}");
        EXPECT_EQ(error.kind, Kind::dataCorrupted) << text;
        EXPECT_EQ(error.path, std::vector<std::string>{"number"});
        EXPECT_EQ(decodingError<Sample>(std::string(R"({"number":1,"note":)") + text + "}").kind,
                  Kind::typeMismatch);
    }
    EXPECT_EQ(decoded<double>("1e-400"), 0);
    EXPECT_EQ(decoded<double>("1.7976931348623157e308"), std::numeric_limits<double>::max());
}

TEST(JSONReader, KeepsTheSignOfZero) {
    for (const char* text : {"-0", "-0.0", "-0e5"})
        EXPECT_TRUE(std::signbit(decoded<double>(text))) << text;
    EXPECT_FALSE(std::signbit(decoded<double>("0")));
}

TEST(JSONReader, TakesWholeNumbersInEverySpelling) {
    for (const char* text : {"540", "540.0", "5.4e2", "54000e-2", "0.54E+3", "540.000e0"})
        EXPECT_EQ(decoded<std::int64_t>(text), 540) << text;
    for (const char* text : {"0", "-0", "0.0", "-0.0", "0e999999999999999999999", "0.000e-5"})
        EXPECT_EQ(decoded<std::int64_t>(text), 0) << text;
}

TEST(JSONReader, KeepsEveryDigitOfAnInteger) {
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t number : {least, most, std::int64_t{9007199254740993}}) {
        EXPECT_EQ(decoded<std::int64_t>(encode(number)), number);
        EXPECT_EQ(decoded<std::int64_t>(std::to_string(number) + ".0"), number);
    }
}

TEST(JSONReader, RefusesWhatIsNoInteger) {
    for (const char* text :
         {"540.5", "1e19", "9223372036854775808", "-9223372036854775809", "1e-1", "1e400",
          "1e999999999999999999999", "1e-999999999999999999999", "1.7976931348623157e308"})
        EXPECT_EQ(decodingError<std::int64_t>(text).kind, Kind::dataCorrupted) << text;
    EXPECT_EQ(decodingError<std::int64_t>("true").kind, Kind::typeMismatch);
}

TEST(JSONReader, AnswersEndlessNumbers) {
    const std::string digits(100'000, '9');
    EXPECT_EQ(decodingError<double>(digits).kind, Kind::dataCorrupted);
    EXPECT_EQ(decoded<double>("0." + digits), 1);
    const std::string zeros(100'000, '0');
    EXPECT_EQ(decoded<std::int64_t>("5" + zeros + "e-100000"), 5);
}

TEST(JSONReader, DoesNotDependOnTheLocale) {
    // Built for the tests: numbers with a decimal comma.
    ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr);
    const std::string encoded = encode(40.5);
    const Decoded<double> number = decode<double>("40.5");
    const Decoded<std::int64_t> whole = decode<std::int64_t>("5.4e2");
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(encoded, "40.5");
    EXPECT_EQ(std::get<double>(number), 40.5);
    EXPECT_EQ(std::get<std::int64_t>(whole), 540);
}

} // namespace tervale
