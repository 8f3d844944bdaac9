#include "Base/ThemeColors.h"
#include "tervalectl/ChartSVG.h"
#include "tervalectl/SampleChart.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <cstdio>
#include <set>

using namespace tervale;

namespace {

/// Every text of the document, in order; a document that is not well-formed fails the test.
QStringList textsOf(const std::string& svg) {
    QXmlStreamReader xml(QByteArray::fromStdString(svg));
    QStringList texts;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("text"))
            texts << xml.readElementText();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return texts;
}

std::set<QString> colorsOf(const std::string& svg) {
    std::set<QString> colors;
    auto matches = QRegularExpression("#[0-9a-f]{6}").globalMatch(QString::fromStdString(svg));
    while (matches.hasNext())
        colors.insert(matches.next().captured());
    return colors;
}

void expectWellFormed(const Chart& chart) {
    EXPECT_FALSE(textsOf(chartSVG(chart)).isEmpty());
    EXPECT_EQ(chartSVG(chart).find("nan"), std::string::npos);
    EXPECT_EQ(chartSVG(chart).find("inf"), std::string::npos);
}

} // namespace

TEST(ChartSVG, NamesWhatItShows) {
    const QStringList texts = textsOf(chartSVG(sampleChart()));
    for (const char* text :
         {"Quiet, dry run", "CPU average", "CPU hottest", "GPU hottest", "Target", "Safety",
          "20 °C", "100 °C", "0%", "50%", "100%", "10:00:00", "10:01:00"})
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
    EXPECT_FALSE(texts.contains("Load"));
    EXPECT_FALSE(texts.contains("Fans"));
}

TEST(ChartSVG, IsWellFormedWhateverItHolds) {
    expectWellFormed(Chart("Nothing"));
    expectWellFormed(sampleChart("<\"Fish\" & chips>\x01\x1b[31m"));
    EXPECT_EQ(textsOf(chartSVG(sampleChart("<\"Fish\" & chips>"))).first(), "<\"Fish\" & chips>");
    Chart wild("Wild");
    for (const double value : {-1e308, 0.0, 1e308}) {
        ChartSample sample;
        sample.time = value;
        sample.cpu = value;
        sample.target = value;
        sample.load = value;
        sample.speed = value;
        wild.add(sample);
    }
    expectWellFormed(wild);
}

TEST(ChartSVG, SaysWhereTheFansAreTheSystems) {
    Chart chart("Automatic");
    ChartSample sample;
    sample.cpu = 50;
    chart.add(sample);
    EXPECT_EQ(textsOf(chartSVG(chart)).count("Automatic"), 2) << "the title, and in the plot";
    EXPECT_FALSE(textsOf(chartSVG(chart)).contains("Target"));
}

TEST(ChartSVG, HasTheColorsOfTheWindowAndNoOthers) {
    std::set<QString> known;
    for (const auto* ground : {&themeColors::light, &themeColors::dark}) {
        for (const std::uint32_t color :
             {ground->window, ground->card, ground->label, ground->accentLabel, ground->warning})
            known.insert(QString::asprintf("#%06x", color));
    }
    known.insert(QString::fromStdString(themeColors::thermal(70).hex()));
    const Chart chart = sampleChart();
    for (int stop = 0; stop <= 16; ++stop)
        known.insert(QString::fromStdString(
            themeColors::thermal(20 + stop * chart.celsius().span() / 16).hex()));
    const std::set<QString> used = colorsOf(chartSVG(chart));
    EXPECT_EQ(used, known);
}

TEST(ChartSVG, FollowsAReaderWhoseSystemIsDark) {
    const std::string svg = chartSVG(sampleChart());
    const auto dark = svg.find("@media (prefers-color-scheme: dark)");
    ASSERT_NE(dark, std::string::npos);
    EXPECT_NE(svg.find(".f-window{fill:#1e1e20}", dark), std::string::npos);
    EXPECT_NE(svg.find("class=\"f-window\" fill=\"#f4f4f6\""), std::string::npos);
}
