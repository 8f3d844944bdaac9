#include "tervalectl/TextStyle.h"

#include <gtest/gtest.h>

#include <map>

using namespace tervale;

namespace {

TextStyle styleIn(const std::map<std::string, std::string>& variables,
                  std::optional<int> columns = 100) {
    return textStyle(
        [&](const std::string& name) {
            const auto found = variables.find(name);
            return found == variables.end() ? std::nullopt : std::optional(found->second);
        },
        columns);
}

} // namespace

TEST(TextStyle, IsUnicodeWhereTheLocaleIs) {
    EXPECT_TRUE(styleIn({{"LANG", "de_DE.UTF-8"}}).unicode);
    EXPECT_TRUE(styleIn({{"LC_ALL", ""}, {"LC_CTYPE", "C.utf8"}}).unicode);
    EXPECT_FALSE(styleIn({{"LANG", "de_DE.UTF-8"}, {"LC_ALL", "C"}}).unicode);
    EXPECT_FALSE(styleIn({{"LANG", "de_DE"}}).unicode);
    EXPECT_FALSE(styleIn({}).unicode);
}

TEST(TextStyle, HasColorsInATerminalThatHasThem) {
    using Colors = TextStyle::Colors;
    EXPECT_EQ(styleIn({{"TERM", "xterm-256color"}}).colors, Colors::palette);
    EXPECT_EQ(styleIn({{"TERM", "xterm"}, {"COLORTERM", "truecolor"}}).colors, Colors::all);
    EXPECT_EQ(styleIn({{"TERM", "xterm"}, {"NO_COLOR", "1"}}).colors, Colors::none);
    EXPECT_EQ(styleIn({{"TERM", "dumb"}}).colors, Colors::none);
    EXPECT_EQ(styleIn({{"TERM", "xterm"}}, std::nullopt).colors, Colors::none);
}

TEST(TextStyle, IsLiveAndAsWideAsTheTerminal) {
    EXPECT_EQ(styleIn({{"TERM", "xterm"}}).columns, 100);
    EXPECT_EQ(styleIn({{"TERM", "xterm"}}, 5).columns, 40);
    EXPECT_EQ(styleIn({{"TERM", "xterm"}}, 1000).columns, 160);
    EXPECT_EQ(styleIn({{"TERM", "xterm"}}, std::nullopt).columns, 80);
    EXPECT_TRUE(styleIn({{"TERM", "xterm"}}).live);
    EXPECT_FALSE(styleIn({{"TERM", "dumb"}}).live);
    EXPECT_FALSE(styleIn({{"TERM", "xterm"}}, std::nullopt).live);
}
