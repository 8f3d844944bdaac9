#include "JSON/Decoded.h"
#include "JSON/JSONText.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>
#include <random>
#include <string>
#include <vector>

namespace tervale {

namespace {

using namespace std::string_literals;

/// Why the text is refused; empty if it is not.
std::string refusal(std::string_view text) {
    try {
        checkedJSON(text);
        return {};
    } catch (const DecodingFailure& failure) {
        EXPECT_EQ(failure.error.kind, DecodingError::Kind::dataCorrupted);
        EXPECT_TRUE(failure.error.path.empty());
        return failure.error.text();
    }
}

std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

/// That many arrays in one another.
std::string nested(std::size_t count) {
    return repeated("[", count) + repeated("]", count);
}

/// What a text for the comparison below is put together from.
const std::array pieces{
    "{"s,      "}"s,       "["s,           "]"s,    ":"s,    ","s,        "\""s,   "\"a\""s,
    "\"a\":"s, "0"s,       "-"s,           "1"s,    "."s,    "e"s,        "E+"s,   "12.5e-3"s,
    "true"s,   "false"s,   "null"s,        " "s,    "\n"s,   "\t"s,       "\r"s,   "\\"s,
    "\\u"s,    "\\ud83c"s, "\\uDF00"s,     "00e9"s, "\xC3"s, "\xA9"s,     "\xE0"s, "\xED"s,
    "\xF0"s,   "\xF4"s,    "\x8F\xBF"s,    "\x90"s, "\xBF"s, "\xC0\x80"s, "\x7F"s, "\x1F"s,
    "\0"s,     "x"s,       "\xEF\xBB\xBF"s};

} // namespace

TEST(JSONGrammar, LetsEveryKindOfValuePass) {
    for (const char* text :
         {"null", "true", "false", "0", "-0", "12", "-1.5", "1e5", "1E+5", "2.5e-7", R"("")",
          R"("a\"\\\/\b\f\n\r\t\u00e9\uD83C\uDF00")", "[]", "{}", "[1,[2],{}]", R"({"a":1,"b":{}})",
          " \t\r\n[ 1 , 2 ] ", "\xEF\xBB\xBF[]", "\"\xC3\xA9\xF0\x9F\x8C\x80\""})
        EXPECT_EQ(refusal(text), "") << text;
}

TEST(JSONGrammar, TellsWhereATextIsNoJSON) {
    const std::vector<std::pair<std::string, int>> cases{
        {"", 1},         {" \n", 3},        {"[1,]", 4},         {"[1 2]", 4},
        {"01", 2},       {"1.", 3},         {"+1", 1},           {"nul", 4},
        {"{a:1}", 2},    {R"({"a" 1})", 6}, {R"({"a":1,})", 8},  {"[] []", 4},
        {"\"a\nb\"", 3}, {R"("\x")", 3},    {R"("\ud83cx")", 8}, {R"("\udf00")", 5},
        {"'a'", 1},      {"[1}", 3},        {"\xEF\xBB\xBF", 4}, {"[]\0"s, 3}};
    for (const auto& [text, position] : cases)
        EXPECT_EQ(refusal(text), "The text is not JSON at byte " + std::to_string(position) + ".")
            << text;
}

TEST(JSONGrammar, RefusesIllFormedUTF8) {
    for (const char* text :
         {"\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x8C"})
        EXPECT_NE(refusal("\""s + text + "\""), "") << text;
    for (const char* text : {"\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                             "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_EQ(refusal("\""s + text + "\""), "") << text;
}

TEST(JSONGrammar, NestsAtMost512Levels) {
    EXPECT_EQ(refusal(nested(512)), "");
    EXPECT_EQ(refusal(nested(513)), "The text nests more than 512 levels.");
    EXPECT_EQ(refusal(repeated(R"({"a":)", 513)), "The text nests more than 512 levels.");
}

TEST(JSONGrammar, RefusesAHundredThousandBrackets) {
    constexpr std::size_t count = 100'000;
    for (const char* bracket : {"[", "{\"automatic\":", "{", "]", "}"})
        EXPECT_NE(refusal(repeated(bracket, count)), "");
    EXPECT_NE(refusal(nested(count)), "");
}

TEST(JSONGrammar, RefusesFiftyMegabytes) {
    for (const char fill : {'[', '{', '"', '0', ' ', 'x', '\0', '\xFF'})
        EXPECT_NE(refusal(std::string(50'000'000, fill)), "");
}

TEST(JSONGrammar, ReadsATextOfTheGreatestSizeToTheEnd) {
    const std::string longest = "\"" + std::string(maximumJSONSize - 2, 'x') + "\"";
    EXPECT_EQ(refusal(longest), "");
    EXPECT_EQ(refusal(longest + " "), "The text is longer than 16777216 bytes.");
}

// A second opinion on texts that are almost JSON, by another parser. Numbers are kept short, since
// it refuses those that no double holds.
TEST(JSONGrammar, AgreesWithAnotherParser) {
    std::mt19937_64 random(1);
    const auto below = [&](std::size_t limit) {
        return static_cast<std::size_t>(random() % limit);
    };
    int accepted = 0;
    for (int round = 0; round < 40'000; ++round) {
        std::string text;
        for (std::size_t count = 1 + below(6); count > 0; --count)
            text += pieces[below(pieces.size())];
        if (below(2) == 0)
            text.insert(0, "[\"").append("\"]");
        // It takes a zero byte for the end of the text, and so has no opinion.
        const bool expected = text.find('\0') == std::string::npos && nlohmann::json::accept(text);
        ASSERT_EQ(refusal(text).empty(), expected) << text;
        accepted += expected ? 1 : 0;
    }
    EXPECT_GT(accepted, 1'000);
}

} // namespace tervale
