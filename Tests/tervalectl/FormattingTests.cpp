#include "tervalectl/Formatting.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace tervale;

TEST(Table, IsAsWideAsItsWidestCells) {
    Table table({{"FAN"}, {"SPEED", Table::Alignment::right}, {"MODE"}});
    table.add({"1", "900 rpm", "automatic"});
    table.add({"Zwölf", "12000 rpm", ""});
    std::ostringstream out;
    table.print(out);
    EXPECT_EQ(out.str(), "FAN        SPEED  MODE\n"
                         "1        900 rpm  automatic\n"
                         "Zwölf  12000 rpm\n");
}

TEST(Table, PrintsLineByLineInLeastWidths) {
    const Table table({{"TIME", Table::Alignment::right, 6}, {"X"}});
    std::ostringstream out;
    table.printTitles(out);
    table.print(out, {"12", "wide"});
    EXPECT_EQ(out.str(), "  TIME  X\n    12  wide\n");
}

TEST(Table, LetsNothingThroughThatATerminalObeys) {
    Table table({{"X"}});
    table.add({"a\x1B[2J\xFF"});
    std::ostringstream out;
    table.print(out);
    table.print(out, {"\x1Bz"});
    EXPECT_EQ(out.str(), "X\na [2J\uFFFD\n z\n");
}

TEST(PrintJSON, EscapesTheControlsThatJSONLetsThrough) {
    std::ostringstream out;
    printJSON(out, "\"a\x7F\xC2\x80\xC2\x9B\xC2\xA0\u00FF\"");
    EXPECT_EQ(out.str(), "\"a\\u007f\\u0080\\u009b\xC2\xA0\u00FF\"\n");
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
