#pragma once

#include "TervaleWindow/Support/Contrast.h"

#include <QImage>
#include <QRegion>
#include <QWidget>

#include <functional>

namespace tervale {

/// Shows the widget on the offscreen platform and waits until it has been painted.
void showAndSettle(QWidget& widget);

/// Has a gauge's running animation show a time since it began, in milliseconds.
void setAnimationTime(QWidget& gauge, int milliseconds);

/// The regions that a widget and its children are asked to paint while `action` runs and is
/// settled.
QRegion paintedDuring(QWidget& widget, const std::function<void()>& action);

QImage imageOf(QWidget& widget);

/// Whether two colours are equal but for the rounding of blends.
bool isClose(const QColor& first, const QColor& second, int tolerance = 3);

} // namespace tervale
