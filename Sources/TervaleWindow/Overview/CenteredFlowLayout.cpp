#include "TervaleWindow/Overview/CenteredFlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <climits>

namespace tervale {

CenteredFlowLayout::CenteredFlowLayout(int columnSpacing, int rowSpacing)
    : columnSpacing(columnSpacing),
      rowSpacing(rowSpacing) {
    setContentsMargins(0, 0, 0, 0);
}

CenteredFlowLayout::~CenteredFlowLayout() = default;

void CenteredFlowLayout::addItem(QLayoutItem* item) {
    items.emplace_back(item);
}

QLayoutItem* CenteredFlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* CenteredFlowLayout::takeAt(int index) {
    if (index < 0 || index >= count())
        return nullptr;
    const auto place = items.begin() + index;
    QLayoutItem* item = place->release();
    items.erase(place);
    return item;
}

std::vector<QRect> CenteredFlowLayout::places(const QRect& rectangle) const {
    const QRect inside = rectangle.marginsRemoved(contentsMargins());
    std::vector<QRect> result;
    std::size_t rowStart = 0;
    int x = 0;
    int y = inside.top();
    int rowHeight = 0;
    const auto endRow = [&] {
        const int shift = inside.left() + std::max(0, (inside.width() - (x - columnSpacing)) / 2);
        for (; rowStart < result.size(); ++rowStart)
            result[rowStart].translate(shift, 0);
        y += rowHeight + rowSpacing;
        x = rowHeight = 0;
    };
    for (const auto& item : items) {
        const QSize size = item->sizeHint();
        if (x > 0 && x + size.width() > inside.width())
            endRow();
        result.emplace_back(QPoint(x, y), size);
        x += size.width() + columnSpacing;
        rowHeight = std::max(rowHeight, size.height());
    }
    endRow();
    const auto* parent = parentWidget();
    if (parent && parent->isRightToLeft()) {
        for (QRect& place : result)
            place = QStyle::visualRect(Qt::RightToLeft, inside, place);
    }
    return result;
}

int CenteredFlowLayout::heightForWidth(int width) const {
    int bottom = contentsMargins().top();
    for (const QRect& place : places({0, 0, width, 0}))
        bottom = std::max(bottom, place.bottom() + 1);
    return bottom + contentsMargins().bottom();
}

QSize CenteredFlowLayout::sizeHint() const {
    int width = 0;
    for (const QRect& place : places({0, 0, INT_MAX / 2, 0}))
        width += place.width() + (width > 0 ? columnSpacing : 0);
    const QMargins margins = contentsMargins();
    width += margins.left() + margins.right();
    return {width, heightForWidth(width)};
}

QSize CenteredFlowLayout::minimumSize() const {
    QSize size;
    for (const auto& item : items)
        size = size.expandedTo(item->sizeHint());
    return size.grownBy(contentsMargins());
}

void CenteredFlowLayout::setGeometry(const QRect& rectangle) {
    QLayout::setGeometry(rectangle);
    const auto placed = places(rectangle);
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i]->setGeometry(placed[i]);
}

} // namespace tervale
