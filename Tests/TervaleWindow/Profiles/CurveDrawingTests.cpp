#include "TervaleWindow/Profiles/CurveDrawing.h"

#include <gtest/gtest.h>

#include <limits>

namespace tervale {
namespace {

constexpr PlotRect drawingRect{40, 12, 900, 200};

CurveEditing drawn() {
    CurveEditing editing;
    editing.range = {20, 110};
    editing.curve.points = {{40, 0.1}, {60, 0.35}, {80, 0.75}, {95, 1.0}};
    return editing;
}

CurveDrawing temperatureDrawing(std::optional<double> marker = std::nullopt) {
    return drawingOf(drawn(), "°C", marker, drawingRect);
}

TEST(CurveDrawing, RulesFiveLinesWithTheirPercents) {
    const CurveDrawing drawing = temperatureDrawing();
    EXPECT_EQ(drawing.grid, (std::array<double, 5>{212, 162, 112, 62, 12}));
    EXPECT_EQ(drawing.speeds[0], (CurveDrawing::Label{{20, 212}, "0%"}));
    EXPECT_EQ(drawing.speeds[1].text, "25%");
    EXPECT_EQ(drawing.speeds[4], (CurveDrawing::Label{{20, 12}, "100%"}));
}

TEST(CurveDrawing, CutsTheRangeIntoFiveSteps) {
    const CurveDrawing drawing = temperatureDrawing();
    EXPECT_EQ(drawing.units[0], (CurveDrawing::Label{{40, 225}, "20°"}));
    EXPECT_EQ(drawing.units[1], (CurveDrawing::Label{{220, 225}, "38°"}));
    EXPECT_EQ(drawing.units[5], (CurveDrawing::Label{{940, 225}, "110°"}));
}

TEST(CurveDrawing, RunsFlatToBothEdges) {
    EXPECT_EQ(temperatureDrawing().line,
              (std::vector<PlotPoint>{
                  {40, 192}, {240, 192}, {440, 142}, {640, 62}, {790, 12}, {940, 12}}));
}

TEST(CurveDrawing, DrawsNoLineWithoutPoints) {
    CurveEditing editing = drawn();
    editing.curve.points.clear();
    const CurveDrawing drawing = drawingOf(editing, "°C", {}, drawingRect);
    EXPECT_TRUE(drawing.line.empty());
    EXPECT_TRUE(drawing.knots.empty());
}

TEST(CurveDrawing, EnlargesThePointThatIsDragged) {
    CurveEditing editing = drawn();
    editing.dragging = 2;
    editing.chosen = 2;
    const CurveDrawing drawing = drawingOf(editing, "°C", {}, drawingRect);
    EXPECT_EQ(drawing.knots[1], (CurveDrawing::Knot{{440, 142}, 6, 60, false}));
    EXPECT_EQ(drawing.knots[2], (CurveDrawing::Knot{{640, 62}, 7.5, 80, true}));
}

TEST(CurveDrawing, MarksTheCurrentValue) {
    EXPECT_EQ(temperatureDrawing().marker, std::nullopt);
    EXPECT_EQ(temperatureDrawing(57.6).marker,
              (CurveDrawing::Marker{57.6, 416, "now 58°", {421, 19}}));
}

TEST(CurveDrawing, TellsLoadFromTemperatureByItsUnit) {
    const CurveDrawing drawing = drawingOf({{}, {0, 100}, {}, {}, {}}, "%", 42.0, drawingRect);
    EXPECT_TRUE(drawing.load);
    EXPECT_EQ(drawing.units[1].text, "20%");
    EXPECT_EQ(drawing.marker->text, "now 42%");
    EXPECT_FALSE(temperatureDrawing().load);
    EXPECT_FALSE(drawingOf(drawn(), "% ", {}, drawingRect).load);
}

TEST(CurveDrawing, SpeaksAPointWithItsUnit) {
    EXPECT_EQ(positionText({60, 0.35}, "°C"), "60 °C, 35%");
    EXPECT_EQ(positionText({90, 0.29}, "%"), "90%, 29%");
    EXPECT_EQ(positionText({1e300, -1e300}, "%"), "1000000%, -100000000%");
}

TEST(CurveDrawing, MarksAValueBesideThePlotWhereTheScaleGoesOn) {
    EXPECT_EQ(temperatureDrawing(20.0).marker->x, drawingRect.left);
    EXPECT_EQ(temperatureDrawing(110.0).marker->x, drawingRect.right());
    const double degree = drawingRect.width / 90;
    EXPECT_DOUBLE_EQ(temperatureDrawing(112.0).marker->x, drawingRect.right() + 2 * degree);
    EXPECT_DOUBLE_EQ(temperatureDrawing(17.0).marker->x, drawingRect.left - 3 * degree);
}

TEST(CurveDrawing, MarksNothingThatIsNoReading) {
    for (const double marker : {-1e300, 1e300, std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(temperatureDrawing(marker).marker, std::nullopt) << marker;
}

} // namespace
} // namespace tervale
