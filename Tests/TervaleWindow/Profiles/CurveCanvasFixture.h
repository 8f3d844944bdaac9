#pragma once

#include "TervaleWindow/Profiles/CurveCanvas.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

namespace tervale {

inline constexpr PlotInsets insets{12, 40, 26, 14};
inline const Curve usual{{{40, 0.1}, {60, 0.35}, {80, 0.75}, {95, 1.0}}};

/// A canvas with a curve, and an owner that performs whatever it asks for.
class CurveCanvasFixture : public testing::Test {
  protected:
    CurveCanvasFixture() {
        // Five pixels a degree.
        canvas.resize(504, 240);
        canvas.setCurve(usual);
        canvas.show();
        canvas.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&canvas));
        QObject::connect(&canvas, &CurveCanvas::edited, &canvas, [this](const CurveEdit& edit) {
            Curve curve = canvas.state().curve;
            EXPECT_TRUE(perform(edit, curve));
            canvas.setCurve(curve);
            edits.push_back(edit);
        });
    }

    QPoint at(double x, double speed) const {
        const PlotPoint point = CurvePlot{canvas.plot(), {20, 110}}.position({x, speed});
        return QPointF(point.x, point.y).toPoint();
    }
    std::vector<CurvePoint> points() const { return canvas.state().curve.points; }
    void press(QPoint place) { QTest::mousePress(&canvas, Qt::LeftButton, {}, place); }
    void moveTo(QPoint place) {
        QMouseEvent event(QEvent::MouseMove, place, canvas.mapToGlobal(place), Qt::NoButton,
                          Qt::LeftButton, {});
        QApplication::sendEvent(&canvas, &event);
    }
    void release(QPoint place) { QTest::mouseRelease(&canvas, Qt::LeftButton, {}, place); }
    /// The second press of two, and its release.
    void pressAgain(QPoint place) {
        QMouseEvent event(QEvent::MouseButtonDblClick, place, canvas.mapToGlobal(place),
                          Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(&canvas, &event);
    }
    void doubleClick(QPoint place) {
        press(place);
        release(place);
        pressAgain(place);
        release(place);
    }
    void key(Qt::Key which, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&canvas, which, modifiers);
    }
    QColor pixel(const QImage& image, QPoint place) const {
        return image.pixelColor(place * image.devicePixelRatio());
    }

    CurveCanvas canvas{{20, 110}, QStringLiteral("°C"), insets};
    /// What was asked for and done.
    std::vector<CurveEdit> edits;
};

} // namespace tervale
