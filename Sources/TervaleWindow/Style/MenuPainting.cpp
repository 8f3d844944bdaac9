#include "TervaleWindow/Style/MenuPainting.h"

#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Style/ControlPainting.h"

#include <QFontMetrics>
#include <QPainterPath>
#include <QStyle>

namespace tervale {

namespace {

constexpr int sidePadding = 9;
constexpr int checkColumn = 18;
constexpr int arrowColumn = 18;

void strokePath(QPainter& painter, const QPainterPath& path, const QColor& color) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
}

void paintCheckMark(QPainter& painter, const QRect& place, const QColor& color) {
    const QPointF centre = QRectF(place).center();
    QPainterPath path(centre + QPointF(-4, 0.5));
    path.lineTo(centre + QPointF(-1.3, 3.5));
    path.lineTo(centre + QPointF(4, -3.5));
    strokePath(painter, path, color);
}

void paintArrow(QPainter& painter, const QRect& place, const QColor& color,
                Qt::LayoutDirection direction) {
    const QPointF centre = QRectF(place).center();
    const qreal forward = direction == Qt::RightToLeft ? -1 : 1;
    QPainterPath path(centre + QPointF(-2 * forward, -4));
    path.lineTo(centre + QPointF(2 * forward, 0));
    path.lineTo(centre + QPointF(-2 * forward, 4));
    strokePath(painter, path, color);
}

void paintSeparator(QPainter& painter, const QRect& row, const Colors& colors) {
    painter.fillRect(
        QRect(row.left() + sidePadding, row.center().y(), row.width() - 2 * sidePadding, 1),
        colors.line);
}

} // namespace

MenuRowLayout menuRowLayout(const QRect& row, const MenuRow& content) {
    MenuRowLayout layout;
    layout.highlight = row;
    const int leading = sidePadding + (content.hasCheckColumn ? checkColumn : 0);
    const int trailing = sidePadding + (content.hasSubmenu ? arrowColumn : 0);
    layout.check = QRect(row.left() + sidePadding - 3, row.top(), checkColumn, row.height());
    layout.text = row.adjusted(leading, 0, -trailing, 0);
    layout.arrow = QRect(row.right() + 1 - arrowColumn - 3, row.top(), arrowColumn, row.height());
    return layout;
}

int menuRowChrome(const MenuRow& content) {
    return 100 - menuRowLayout(QRect(0, 0, 100, menuRowHeight), content).text.width();
}

void paintMenuRow(QPainter& painter, const QRect& row, const MenuRow& content, const QFont& font,
                  const Colors& colors, Qt::LayoutDirection direction) {
    painter.save();
    const auto visual = [&](const QRect& part) { return QStyle::visualRect(direction, row, part); };
    const MenuRowLayout layout = menuRowLayout(row, content);
    if (content.isSeparator) {
        paintSeparator(painter, row, colors);
    } else {
        const bool lit = content.isHighlighted && content.isEnabled;
        if (lit)
            paintBox(painter, layout.highlight, 5, Theme::accent(), Qt::transparent);
        painter.setOpacity(content.isEnabled ? 1 : disabledOpacity);
        const QColor foreground = lit ? QColor(Qt::white) : colors.label;
        if (content.isChecked)
            paintCheckMark(painter, visual(layout.check), foreground);
        if (content.hasSubmenu)
            paintArrow(painter, visual(layout.arrow), foreground, direction);
        painter.setFont(font);
        painter.setPen(foreground);
        const QRect textPlace = visual(layout.text);
        const int room = textPlace.width();
        const Qt::Alignment start = QStyle::visualAlignment(direction, Qt::AlignLeading);
        const Qt::Alignment end = QStyle::visualAlignment(direction, Qt::AlignTrailing);
        const QFontMetrics metrics(font);
        const QString text =
            content.shortcut.isEmpty()
                ? metrics.elidedText(content.text, Qt::ElideRight, room, Qt::TextShowMnemonic)
                : content.text;
        painter.drawText(textPlace,
                         static_cast<int>(start | Qt::AlignVCenter) | Qt::TextHideMnemonic, text);
        painter.drawText(textPlace, static_cast<int>(end | Qt::AlignVCenter), content.shortcut);
    }
    painter.restore();
}

void paintMenuPanel(QPainter& painter, const QRect& panel, const Colors& colors) {
    // A menu floats; its line must stand out from whatever is below.
    QColor line = colors.label;
    line.setAlphaF(std::max(0.18f, colors.controlLine.alphaF()));
    paintBox(painter, panel, menuRadius, colors.control, line);
}

} // namespace tervale
