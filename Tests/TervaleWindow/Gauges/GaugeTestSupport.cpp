#include "TervaleWindow/Gauges/GaugeTestSupport.h"

#include "TervaleWindow/Gauges/GaugeAnimation.h"

#include <QApplication>
#include <QPaintEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <cstdlib>

namespace tervale {

namespace {

class PaintWatcher : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

    QRegion painted;
};

} // namespace

void showAndSettle(QWidget& widget) {
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    QApplication::processEvents();
}

void setAnimationTime(QWidget& gauge, int milliseconds) {
    auto* animation = gauge.findChild<GaugeAnimation*>();
    ASSERT_NE(animation, nullptr);
    ASSERT_TRUE(animation->isRunning());
    animation->advanceTo(milliseconds);
}

QRegion paintedDuring(QWidget& widget, const std::function<void()>& action) {
    QApplication::processEvents();
    PaintWatcher watcher;
    widget.installEventFilter(&watcher);
    action();
    QApplication::sendPostedEvents();
    QApplication::processEvents();
    widget.removeEventFilter(&watcher);
    return watcher.painted;
}

QImage imageOf(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(widget.palette().color(QPalette::Window));
    widget.render(&image);
    return image;
}

bool isClose(const QColor& first, const QColor& second, int tolerance) {
    return std::abs(first.red() - second.red()) <= tolerance &&
           std::abs(first.green() - second.green()) <= tolerance &&
           std::abs(first.blue() - second.blue()) <= tolerance;
}

} // namespace tervale
