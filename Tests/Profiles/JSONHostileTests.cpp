#include "Profiles/JSONSupport.h"

#include <gtest/gtest.h>

namespace tervale {

using test::decoded;
using test::decodingError;
using Kind = DecodingError::Kind;

namespace {

std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

/// An action with an unknown member that holds that many arrays in one another.
std::string nested(std::size_t count) {
    return R"({"automatic":{},"deep":)" + repeated("[", count) + repeated("]", count) + "}";
}

constexpr std::size_t fiftyMegabytes = 50'000'000;

} // namespace

TEST(HostileJSON, NestsAtMost512Levels) {
    EXPECT_EQ(decoded<Action>(nested(511)), Action(action::Automatic{}));
    EXPECT_EQ(decodingError<Action>(nested(512)).text(), "The text nests more than 512 levels.");
}

TEST(HostileJSON, OfAHundredThousandBracketsIsRefused) {
    constexpr std::size_t count = 100'000;
    for (const char* bracket : {"[", "{\"automatic\":", "{", "]", "}"})
        EXPECT_EQ(decodingError<Action>(repeated(bracket, count)).kind, Kind::dataCorrupted);
    EXPECT_EQ(decodingError<Action>(nested(count)).kind, Kind::dataCorrupted);
}

TEST(HostileJSON, OfFiftyMegabytesIsRefused) {
    for (const char fill : {'[', '{', '"', '0', ' ', 'x', '\0', '\xFF'})
        EXPECT_EQ(decodingError<BridgeState>(std::string(fiftyMegabytes, fill)).kind,
                  Kind::dataCorrupted);
    const std::string status = R"({"status":")" + std::string(fiftyMegabytes, 'x') + "\"}";
    EXPECT_EQ(decodingError<BridgeState>(status).kind, Kind::dataCorrupted);
}

TEST(HostileJSON, OfTheGreatestSizeIsReadToTheEnd) {
    constexpr std::size_t greatest = 16 * 1024 * 1024;
    const std::string shell = R"({"automatic":{},"more":""})";
    const std::string longest =
        R"({"automatic":{},"more":")" + std::string(greatest - shell.size(), 'x') + "\"}";
    ASSERT_EQ(longest.size(), greatest);
    EXPECT_EQ(decoded<Action>(longest), Action(action::Automatic{}));
    EXPECT_EQ(decodingError<Action>(longest + " ").text(),
              "The text is longer than 16777216 bytes.");
}

TEST(HostileJSON, WithAZeroByteIsRefused) {
    using namespace std::string_literals;
    EXPECT_EQ(decodingError<Action>("{\"automatic\":{}}\0"s).kind, Kind::dataCorrupted);
    EXPECT_EQ(decodingError<Action>("{\"automatic\":{}}\0{}"s).text(),
              "The text is not JSON at byte 17.");
    EXPECT_EQ(decodingError<Action>("\0"s).kind, Kind::dataCorrupted);
}

TEST(HostileJSON, ThatIsEmptyIsRefused) {
    EXPECT_EQ(decodingError<Action>("").kind, Kind::dataCorrupted);
    EXPECT_EQ(decodingError<Action>(" \n").kind, Kind::dataCorrupted);
    EXPECT_EQ(decodingError<Action>("\xEF\xBB\xBF").kind, Kind::dataCorrupted);
}

TEST(HostileJSON, WithEndlessNumbersIsAnswered) {
    const std::string digits(100'000, '9');
    EXPECT_EQ(decodingError<Action>(R"({"fixed":{"_0":)" + digits + "}}").kind,
              Kind::dataCorrupted);
    EXPECT_EQ(decoded<Action>(R"({"fixed":{"_0":0.)" + digits + "}}"), Action(action::Fixed{1}));
    const std::string zeros(100'000, '0');
    EXPECT_EQ(decoded<Window>(R"({"start":5)" + zeros + "e-100000" +
                              R"(,"end":0e999999999999999999999,"action":{"automatic":{}}})"),
              (Window{5, 0, action::Automatic{}}));
}

} // namespace tervale
