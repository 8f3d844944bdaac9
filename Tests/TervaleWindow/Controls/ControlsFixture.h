#pragma once

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Style/WindowStyle.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <cstdlib>

namespace tervale {

/// Installs the window's style once, and the light palette before each test.
class ControlsFixture : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        static bool installed = false;
        if (!installed)
            QApplication::setStyle(new WindowStyle);
        installed = true;
    }

    void SetUp() override { wear(lightPalette()); }

    /// Changes the palette as the desktop does.
    static void wear(const QPalette& palette) {
        QApplication::setPalette(palette);
        QApplication::processEvents();
    }
};

inline void present(QWidget& window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

inline QColor pixel(QWidget& widget, const QPoint& place) {
    return widget.grab().toImage().pixelColor(place);
}

inline bool isClose(const QColor& first, const QColor& second, int tolerance = 6) {
    return std::abs(first.red() - second.red()) <= tolerance &&
           std::abs(first.green() - second.green()) <= tolerance &&
           std::abs(first.blue() - second.blue()) <= tolerance;
}

/// How `over` looks where it is painted onto `ground`.
inline QColor onto(const QColor& ground, const QColor& over) {
    const float share = over.alphaF();
    const auto mix = [share](float from, float to) { return from + share * (to - from); };
    return QColor::fromRgbF(mix(ground.redF(), over.redF()), mix(ground.greenF(), over.greenF()),
                            mix(ground.blueF(), over.blueF()));
}

inline QAccessibleInterface* accessible(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget);
}

} // namespace tervale
