#include "tervalectl/ChartText.h"
#include "tervalectl/SampleChart.h"

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>

using namespace tervale;

namespace {

constexpr TextStyle dots{.columns = 80};
constexpr TextStyle plain{.columns = 80, .unicode = false};

QStringList linesOf(const Chart& chart, const TextStyle& style) {
    return QString::fromStdString(chartText(chart, style)).split('\n');
}

/// The place of the character furthest left in the plot's line; -1 without one.
qsizetype firstMark(const QString& line) {
    for (qsizetype i = 8; i < line.size(); ++i) {
        if (line[i] != ' ')
            return i;
    }
    return -1;
}

} // namespace

TEST(ChartText, FitsTheTerminal) {
    for (const bool unicode : {true, false}) {
        for (const int columns : {40, 80, 160}) {
            const QStringList lines =
                linesOf(sampleChart(), {.columns = columns, .unicode = unicode});
            for (const QString& line : lines)
                EXPECT_LE(line.size(), columns) << line.toStdString();
        }
    }
}

TEST(ChartText, IsPlainAsciiInAPlainLocale) {
    const std::string text = chartText(sampleChart(), plain);
    EXPECT_TRUE(std::ranges::all_of(text, [](char byte) {
        return byte == '\n' || (byte >= ' ' && byte <= '~');
    })) << text;
    for (const char* words : {"* CPU average", "+ CPU hottest", "o GPU hottest", "# Target", "100%",
                              "20 C", "safety", "10:00:00"})
        EXPECT_NE(text.find(words), std::string::npos) << words;
}

TEST(ChartText, DrawsDotsWhereTheTerminalHasThem) {
    const QString text = QString::fromStdString(chartText(sampleChart(), dots));
    EXPECT_TRUE(std::ranges::any_of(text, [](QChar character) {
        return character.unicode() > 0x2800 && character.unicode() <= 0x28FF;
    }));
    EXPECT_FALSE(text.contains('\x1b')) << "no colours without a terminal";
}

TEST(ChartText, RisesWithTheTemperatureAndTheTarget) {
    const QStringList lines = linesOf(sampleChart(), plain);
    // The rows of the target, from 100% to 0%.
    const qsizetype top = lines.indexOf(lines.filter(" 100% |").first());
    for (qsizetype row = top; row < top + 5; ++row)
        EXPECT_GT(firstMark(lines[row]), firstMark(lines[row + 1])) << row;
}

TEST(ChartText, MarksSafetyUnderItsTime) {
    const QString line = linesOf(sampleChart(), plain).filter("safety").first();
    const qsizetype first = line.indexOf('!');
    const qsizetype last = line.lastIndexOf('!');
    EXPECT_NEAR(static_cast<double>(first - 8) / 72, 40 / 60.0, 0.03);
    EXPECT_NEAR(static_cast<double>(last - 8) / 72, 50 / 60.0, 0.03);
    EXPECT_EQ(line.count('!'), last - first + 1);
}

TEST(ChartText, HasAsManyLinesWhateverItHolds) {
    const auto count = linesOf(sampleChart(), dots).size();
    EXPECT_EQ(linesOf(Chart("Nothing"), dots).size(), count);
    EXPECT_EQ(linesOf(sampleChart("Two\nlines\x1b[2J"), plain).size(), count);
}

TEST(ChartText, ColorsEachHeightByItsTemperature) {
    const std::string all =
        chartText(sampleChart(), {.columns = 80, .colors = TextStyle::Colors::all});
    EXPECT_NE(all.find("\x1b[38;2;"), std::string::npos);
    EXPECT_NE(all.find("\x1b[38;2;230;84;61m"), std::string::npos) << "red, above 90 °C";
    EXPECT_TRUE(all.find("\x1b[39m") != std::string::npos);
    const std::string some =
        chartText(sampleChart(), {.columns = 80, .colors = TextStyle::Colors::palette});
    EXPECT_NE(some.find("\x1b[38;5;"), std::string::npos);
    EXPECT_EQ(some.find("\x1b[38;2;"), std::string::npos);
}
