#include "tervalectl/CurveText.h"

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

const Curve risingCurve{{{40, 0.0}, {60, 0.5}, {80, 1.0}}};
constexpr TextStyle plainStyle{.columns = 80, .unicode = false};

QStringList linesOf(const Curve& curve, CurveAxis axis = CurveAxis::temperature) {
    return QString::fromStdString(curveText(curve, axis, plainStyle)).split('\n');
}

} // namespace

TEST(CurveText, MarksThePointsAtTheirPlaces) {
    const QStringList lines = linesOf(risingCurve);
    ASSERT_EQ(lines.size(), 9 + 1 + 1);
    const auto place = [&](int row) { return lines[row].indexOf('O'); };
    EXPECT_TRUE(lines[0].startsWith("  100% |"));
    EXPECT_TRUE(lines[4].startsWith("   50% |"));
    EXPECT_TRUE(lines[8].startsWith("    0% |"));
    EXPECT_LT(place(8), place(4));
    EXPECT_LT(place(4), place(0));
    EXPECT_NEAR(static_cast<double>(place(0) - place(4)), static_cast<double>(place(4) - place(8)),
                1);
    // Over their figures on the axis.
    EXPECT_NEAR(static_cast<double>(lines[9].indexOf("60")), static_cast<double>(place(4)), 1);
}

TEST(CurveText, IsLevelBesideItsEnds) {
    const QStringList lines = linesOf(risingCurve);
    EXPECT_TRUE(lines[0].endsWith("**")) << "at full speed above the last point";
    EXPECT_EQ(lines[8].indexOf('*'), 8) << "at none below the first";
}

TEST(CurveText, HasTheAxisOfItsKind) {
    EXPECT_TRUE(linesOf(risingCurve)[9].contains("20"));
    EXPECT_TRUE(linesOf(risingCurve)[9].endsWith("  C"));
    const QStringList load = linesOf({{{0, 0}, {100, 1}}}, CurveAxis::load);
    EXPECT_TRUE(load[9].trimmed().startsWith("0"));
    EXPECT_TRUE(load[9].endsWith("  %"));
}

TEST(CurveText, IsWiderWherePointsLieBesideTheUsualTemperatures) {
    for (const double x : {0.0, 19.0, 111.0, 120.0}) {
        const QStringList lines = linesOf({{{x, 0.0}, {60, 0.5}}});
        ASSERT_EQ(lines.size(), 9 + 1 + 1) << x;
        EXPECT_TRUE(lines[9].trimmed().startsWith("0 ")) << x;
        EXPECT_TRUE(lines[9].contains("120")) << x;
        const auto point = lines[8].indexOf('O');
        ASSERT_GE(point, 8) << x;
        // Over where its figure is, or would be.
        const auto zero = lines[9].indexOf('0');
        const auto last = lines[9].indexOf("120") + 1;
        EXPECT_NEAR(static_cast<double>(point),
                    static_cast<double>(zero) + x / 120 * static_cast<double>(last - zero), 1)
            << x;
    }
    EXPECT_FALSE(linesOf({{{20, 0}, {110, 1}}})[9].contains("120"));
}

TEST(CurveText, DrawsInTheColorsOfTheTemperature) {
    const std::string text = curveText(risingCurve, CurveAxis::temperature,
                                       {.columns = 80, .colors = TextStyle::Colors::all});
    EXPECT_NE(text.find("\x1b[38;2;77;140;245m"), std::string::npos) << "blue, below 30 °C";
    EXPECT_NE(text.find("●"), std::string::npos);
}

TEST(CurveText, DrawsNothingOfWhatCannotBeDrawn) {
    EXPECT_EQ(curveText({}, CurveAxis::load, plainStyle), "");
    EXPECT_EQ(curveText({{{-1e308, 0}, {1e308, 1}}}, CurveAxis::load, plainStyle), "");
    EXPECT_EQ(curveText({{{10, 7}}}, CurveAxis::load, plainStyle), "");
    EXPECT_EQ(curveText({{{60, 0}, {121, 1}}}, CurveAxis::temperature, plainStyle), "");
    EXPECT_EQ(curveText({{{-1, 0}, {60, 1}}}, CurveAxis::temperature, plainStyle), "");
}
