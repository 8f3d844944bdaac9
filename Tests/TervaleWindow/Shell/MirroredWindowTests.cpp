#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/ThermalBar.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Support/InLocale.h"

#include <QImage>

#include <gtest/gtest.h>

#include <functional>

using namespace tervale;

namespace {

QImage imageOf(QWidget& widget, const QSize& size) {
    widget.resize(size);
    widget.show();
    return widget.grab().toImage();
}

/// What `draw` draws where text begins on the left, and where on the right, in digits of either.
bool isTheSameMirrored(const std::function<QImage()>& draw) {
    const auto drawnIn = [&draw](Qt::LayoutDirection direction) {
        const InLocale locale(QLocale::c());
        QGuiApplication::setLayoutDirection(direction);
        return draw();
    };
    return drawnIn(Qt::LeftToRight) == drawnIn(Qt::RightToLeft);
}

} // namespace

TEST(MirroredWindow, LeavesTheDirectionOfADial) {
    EXPECT_TRUE(isTheSameMirrored([] {
        FanDial dial;
        dial.set({.rpm = 2000, .target = 4500, .min = 1000, .max = 5000, .manual = true});
        return imageOf(dial, dial.sizeHint());
    }));
}

TEST(MirroredWindow, LeavesTheDirectionOfABar) {
    EXPECT_TRUE(isTheSameMirrored([] {
        ThermalBar bar(6);
        bar.setValue(45);
        return imageOf(bar, {200, 6});
    }));
}

TEST(MirroredWindow, LeavesTheDirectionOfACurve) {
    EXPECT_TRUE(isTheSameMirrored([] {
        CurveCanvas canvas({20, 110}, QStringLiteral("°C"), {12, 40, 26, 14});
        canvas.setCurve({{{30, 0}, {60, 0.2}, {100, 1}}});
        canvas.setMarker(50);
        return imageOf(canvas, {500, 240});
    }));
}
