#pragma once

#include <QPainter>
#include <QStyleOptionSlider>

namespace tervale {

/// Scroll bars without arrows or a visible groove: a thin, rounded thumb over the contents.

inline constexpr int scrollBarExtent = 12;

/// Where the thumb can be taken hold of.
QRect scrollBarThumb(const QStyleOptionSlider& option);
/// The way before or after the thumb.
QRect scrollBarPage(const QStyleOptionSlider& option, QStyle::SubControl side);
void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option);

} // namespace tervale
