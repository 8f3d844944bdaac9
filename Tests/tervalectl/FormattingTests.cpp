#include "tervalectl/Formatting.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace tervale;

TEST(Table, IsAsWideAsItsWidestCells) {
    Table table({{"FAN"}, {"SPEED", Table::Alignment::right}, {"MODE"}});
    table.add({"1", "900 RPM", "automatic"});
    table.add({"Zwölf", "12000 RPM", ""});
    std::ostringstream out;
    table.print(out);
    EXPECT_EQ(out.str(), "FAN        SPEED  MODE\n"
                         "1        900 RPM  automatic\n"
                         "Zwölf  12000 RPM\n");
}

TEST(Table, PrintsLineByLineInLeastWidths) {
    const Table table({{"TIME", Table::Alignment::right, 6}, {"X"}});
    std::ostringstream out;
    table.printTitles(out);
    table.print(out, {"12", "wide"});
    EXPECT_EQ(out.str(), "  TIME  X\n    12  wide\n");
}

TEST(Table, LetsNothingThroughThatATerminalObeys) {
    EXPECT_EQ(printable("a\x1B[2J\n\t\x7F"
                        "b\xC2\x9B"
                        "c"),
              "a [2J   b c");
    EXPECT_EQ(printable("a\u202Eb\u2028c\u200Ed"), "a b c d");
    EXPECT_EQ(printable("a\xFF"), "a\uFFFD");
    EXPECT_EQ(printable("48 °C – ü 👩‍🔧"), "48 °C – ü 👩‍🔧");
}

TEST(Bar, IsAsLongAsTheFraction) {
    EXPECT_EQ(barText(0), "");
    EXPECT_EQ(barText(-1), "");
    EXPECT_EQ(barText(0.5 / 24), "▌");
    EXPECT_EQ(barText(2.0 / 24), "██");
    std::string full;
    for (int i = 0; i < 24; ++i)
        full += "█";
    EXPECT_EQ(barText(1), full);
    EXPECT_EQ(barText(7), full);
}
