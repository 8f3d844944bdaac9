#include "TervaleWindow/Style/ScrollBarPainting.h"

#include "TervaleWindow/Appearance/Colors.h"

#include <algorithm>

namespace tervale {

namespace {

constexpr int shortestThumb = 32;
constexpr int inset = 3;

bool isHorizontal(const QStyleOptionSlider& option) {
    return option.orientation == Qt::Horizontal;
}

/// The thumb's place and length along the bar.
struct Span {
    int start;
    int length;
};

Span thumbSpan(const QStyleOptionSlider& option) {
    const int way = isHorizontal(option) ? option.rect.width() : option.rect.height();
    const qint64 range = qint64{option.maximum} - option.minimum;
    if (range <= 0)
        return {0, way};
    const qint64 share = qint64{option.pageStep} * way / (range + option.pageStep);
    const int length = std::min(way, std::max(shortestThumb, static_cast<int>(share)));
    return {QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                            way - length, option.upsideDown),
            length};
}

QRect along(const QStyleOptionSlider& option, int start, int length) {
    const QRect& bar = option.rect;
    if (!isHorizontal(option))
        return {bar.left(), bar.top() + start, bar.width(), length};
    return QStyle::visualRect(option.direction, bar,
                              QRect(bar.left() + start, bar.top(), length, bar.height()));
}

} // namespace

QRect scrollBarThumb(const QStyleOptionSlider& option) {
    const Span thumb = thumbSpan(option);
    return along(option, thumb.start, thumb.length);
}

QRect scrollBarPage(const QStyleOptionSlider& option, QStyle::SubControl side) {
    const Span thumb = thumbSpan(option);
    if (side == QStyle::SC_ScrollBarSubPage)
        return along(option, 0, thumb.start);
    const int way = isHorizontal(option) ? option.rect.width() : option.rect.height();
    const int after = thumb.start + thumb.length;
    return along(option, after, way - after);
}

void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option) {
    if (option.maximum <= option.minimum)
        return;
    const Colors colors = Colors::of(option.palette);
    const bool busy = option.state & (QStyle::State_Sunken | QStyle::State_MouseOver);
    QColor thumbColor = colors.label;
    thumbColor.setAlphaF(busy ? 0.45f : 0.25f);
    const QRectF thumb = QRectF(scrollBarThumb(option)).adjusted(inset, inset, -inset, -inset);
    const qreal radius = std::min(thumb.width(), thumb.height()) / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(thumbColor);
    painter.drawRoundedRect(thumb, radius, radius);
    painter.restore();
}

} // namespace tervale
