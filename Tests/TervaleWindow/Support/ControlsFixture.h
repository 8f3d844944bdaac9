#pragma once

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Support/Contrast.h"
#include "TervaleWindow/Support/InLocale.h"
#include "TervaleWindow/Support/Look.h"

#include <QAccessible>
#include <QApplication>
#include <QBoxLayout>
#include <QFocusFrame>
#include <QImage>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

#include <gtest/gtest.h>

#include <cstdlib>

namespace tervale {

/// Starts each test with the light palette of the look under test, and has text begin on the left
/// unless the test says otherwise.
class ControlsFixture : public testing::Test {
  protected:
    void SetUp() override { wear(lightLook()); }

    /// Changes the palette as the desktop does.
    static void wear(const QPalette& palette) {
        QApplication::setPalette(palette);
        QApplication::processEvents();
    }

  private:
    const InLocale locale{QLocale::c()};
};

inline void present(QWidget& window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

inline void turnWheel(QWidget& widget, int delta) {
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), {}, QPoint(0, delta), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    // Only what comes from a device travels up to the pane.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}

/// Controls in a window of their own, one below the other.
struct ControlsInWindow : ControlsFixture {
    QWidget window;
    QVBoxLayout rows{&window};

    /// Shows it below those that are shown already. The window owns it.
    template <typename Control>
    Control& show(Control* control) {
        rows.addWidget(control, 0, Qt::AlignLeft);
        present(window);
        return *control;
    }

    QFocusFrame* visibleRing() const {
        for (QFocusFrame* frame : window.findChildren<QFocusFrame*>()) {
            if (frame->isVisible())
                return frame;
        }
        return nullptr;
    }
};

inline QColor pixel(QWidget& widget, const QPoint& place) {
    return widget.grab().toImage().pixelColor(place);
}

inline bool isClose(const QColor& first, const QColor& second, int tolerance = 6) {
    return std::abs(first.red() - second.red()) <= tolerance &&
           std::abs(first.green() - second.green()) <= tolerance &&
           std::abs(first.blue() - second.blue()) <= tolerance;
}

inline QAccessibleInterface* accessible(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget);
}

} // namespace tervale
