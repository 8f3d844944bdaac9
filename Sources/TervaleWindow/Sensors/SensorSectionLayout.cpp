#include "TervaleWindow/Sensors/SensorSectionLayout.h"

#include <QStyle>

#include <algorithm>

namespace tervale {

namespace {

constexpr int headerTop = 2;
constexpr int headerLineHeight = 18;
constexpr int nameWidth = 170;
constexpr int valueWidth = 64;
constexpr int spacing = 14;
constexpr int hairline = 1;

/// The row that `pixels` below the first one's top reach into.
int clampedRow(int pixels, int rowCount) {
    return std::clamp(pixels / SensorSectionLayout::rowHeight, 0, rowCount);
}

} // namespace

QRect SensorSectionLayout::headerLine() const {
    return {contents.left(), contents.top() + headerTop, contents.width(), headerLineHeight};
}

SensorRowLayout SensorSectionLayout::row(int index) const {
    const QRect whole(contents.left(), contents.top() + headerHeight + index * rowHeight,
                      contents.width(), rowHeight);
    const QRect inner = whole.adjusted(0, hairline, 0, 0);
    const int barLeft = inner.left() + nameWidth + spacing;
    const int valueLeft = inner.right() + 1 - valueWidth;
    const QRect name(inner.left(), inner.top(), nameWidth, inner.height());
    const QRect bar(barLeft, inner.top() + (inner.height() - barHeight) / 2,
                    std::max(0, valueLeft - spacing - barLeft), barHeight);
    const QRect value(valueLeft, inner.top(), valueWidth, inner.height());
    const auto visual = [&](const QRect& part) {
        return QStyle::visualRect(direction, contents, part);
    };
    return {whole, visual(name), visual(bar), visual(value)};
}

QRect SensorSectionLayout::barColumn() const {
    const QRect first = row(0).bar;
    return {first.left(), contents.top() + headerHeight, first.width(), rowCount * rowHeight};
}

RowRange SensorSectionLayout::rowsIn(const QRect& area) const {
    const int top = area.top() - contents.top() - headerHeight;
    const int bottom = top + area.height();
    return {clampedRow(top, rowCount), clampedRow(bottom + rowHeight - 1, rowCount)};
}

} // namespace tervale
