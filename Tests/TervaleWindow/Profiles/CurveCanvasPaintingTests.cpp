#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Profiles/CurveCanvasFixture.h"

namespace tervale {
namespace {

class CurveCanvasPainting : public CurveCanvasFixture {};

class Repaints final : public QObject {
  public:
    explicit Repaints(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST_F(CurveCanvasPainting, RepaintsOnceForManyChangesWithinAFrame) {
    QCoreApplication::processEvents();
    Repaints repaints(canvas);
    press(at(60, 0.35));
    for (int x = 61; x < 75; ++x)
        moveTo(at(x, 0.5));
    EXPECT_EQ(repaints.count, 0);
    canvas.setMarker(50);
    QTRY_VERIFY(repaints.count > 0);
    EXPECT_EQ(repaints.count, 1);
}

TEST_F(CurveCanvasPainting, RepaintsNothingForTheSameReading) {
    canvas.setMarker(50);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    Repaints repaints(canvas);
    canvas.setMarker(50);
    canvas.setCurve(Curve(usual));
    QCoreApplication::processEvents();
    EXPECT_EQ(repaints.count, 0);
}

TEST_F(CurveCanvasPainting, PaintsPointsAndLineInTheColoursOfTheirTemperature) {
    const QImage image = canvas.grab().toImage();
    EXPECT_EQ(pixel(image, at(60, 0.35)), QColor(Qt::white));
    EXPECT_EQ(pixel(image, at(60, 0.35) + QPoint(6, 0)).rgb(), Theme::thermal(60).rgb());
    const QColor line = pixel(image, at(102, 1.0));
    EXPECT_NEAR(line.redF(), Theme::thermal(102).redF(), 0.02);
    EXPECT_NEAR(line.greenF(), Theme::thermal(102).greenF(), 0.02);
}

TEST_F(CurveCanvasPainting, PaintsTheMarkerWhereTheReadingIs) {
    const QImage before = canvas.grab().toImage();
    canvas.setMarker(50);
    const QImage after = canvas.grab().toImage();
    int changed = 0;
    for (int y = 30; y < 150; ++y)
        changed += before.pixel(at(50, 0).x(), y) != after.pixel(at(50, 0).x(), y) ? 1 : 0;
    // Four pixels on, three off.
    EXPECT_GT(changed, 60);
    EXPECT_LT(changed, 110);
}

TEST_F(CurveCanvasPainting, PaintsTheMarkerOfAReadingBesideThePlotAsFarAsTheCanvasReaches) {
    const auto changedAt = [this](double marker, int x) {
        canvas.setMarker(std::nullopt);
        const QImage before = canvas.grab().toImage();
        canvas.setMarker(marker);
        const QImage after = canvas.grab().toImage();
        int changed = 0;
        for (int y = 30; y < 150; ++y)
            changed += before.pixel(x, y) != after.pixel(x, y) ? 1 : 0;
        return changed;
    };
    const int beyond = at(112, 0).x();
    ASSERT_GT(beyond, canvas.plot().right());
    ASSERT_LT(beyond, canvas.width());
    EXPECT_GT(changedAt(112, beyond), 60);
    EXPECT_GT(changedAt(17, at(17, 0).x()), 60);
    EXPECT_EQ(changedAt(150, canvas.width() - 1), 0);
}

TEST_F(CurveCanvasPainting, KeepsTheMarkersLabelOnTheCanvas) {
    canvas.setMarker(20);
    const QImage cold = canvas.grab().toImage();
    canvas.setMarker(109);
    const QImage hot = canvas.grab().toImage();
    const auto labelled = [&](int left, int right) {
        int changed = 0;
        for (int x = left; x < right; ++x)
            for (int y = 16; y < 24; ++y)
                changed += cold.pixel(x, y) != hot.pixel(x, y) ? 1 : 0;
        return changed > 20;
    };
    const int line = at(109, 0).x();
    EXPECT_TRUE(labelled(line - 60, line - 5));
    EXPECT_FALSE(labelled(line + 5, canvas.width()));
}

TEST_F(CurveCanvasPainting, EnduresImpossibleNumbers) {
    canvas.setCurve({{{-1e300, 1e300}, {1e300, -1e300}}});
    canvas.setMarker(1e300);
    const QImage image = canvas.grab().toImage();
    EXPECT_EQ(pixel(image, {canvas.width() / 2, 4}), pixel(image, {canvas.width() / 2 + 3, 4}));
    EXPECT_EQ(points(), (std::vector<CurvePoint>{{-1e300, 1e300}, {1e300, -1e300}}));
    key(Qt::Key_Right);
    EXPECT_EQ(canvas.chosenPosition().toStdString(), "1000000 °C, -100000000%");
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(points()[1], (CurvePoint{1e300, 0}));
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(points()[1], (CurvePoint{110, 0}));
}

TEST_F(CurveCanvasPainting, FollowsThePaletteFromLightToDark) {
    canvas.setPalette(lightPalette());
    const QImage light = canvas.grab().toImage();
    canvas.setPalette(darkPalette());
    const QImage dark = canvas.grab().toImage();
    EXPECT_GT(pixel(light, {60, 40}).lightnessF(), 0.8);
    EXPECT_LT(pixel(dark, {60, 40}).lightnessF(), 0.3);
}

TEST(CurveLoadCanvas, PaintsInTheAccentColour) {
    CurveCanvas canvas({0, 100}, QStringLiteral("%"), insets);
    canvas.resize(554, 240);
    canvas.setCurve({{{10, 0.0}, {50, 0.5}, {90, 1.0}}});
    const QImage image = canvas.grab().toImage();
    EXPECT_EQ(image.pixelColor(290 + 6, 113).rgb(), Theme::accent().rgb());
}

} // namespace
} // namespace tervale
