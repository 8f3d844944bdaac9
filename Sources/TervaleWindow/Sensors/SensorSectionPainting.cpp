#include "TervaleWindow/Sensors/SensorSectionPainting.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Appearance/TabularText.h"
#include "TervaleWindow/Controls/TextStyle.h"
#include "TervaleWindow/Gauges/BarLayerView.h"
#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QStyle>

namespace tervale {

namespace {

constexpr int valueSize = 14;
/// How far the ring reaches out of the row's sides, and in from its top and bottom.
constexpr int ringOutset = 7;
constexpr int ringInset = 4;

const QFont& valueFont() {
    static const QFont font = roundedFont(valueSize, QFont::Medium);
    return font;
}

Qt::Alignment leading(Qt::LayoutDirection direction) {
    return QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter);
}

Qt::Alignment trailing(Qt::LayoutDirection direction) {
    return QStyle::visualAlignment(direction, Qt::AlignRight | Qt::AlignVCenter);
}

void paintName(QPainter& painter, const QRect& bounds, const QString& name,
               Qt::Alignment alignment) {
    const QString shown = painter.fontMetrics().elidedText(name, Qt::ElideRight, bounds.width());
    // The direction is settled already.
    painter.drawText(bounds, static_cast<int>(alignment | Qt::AlignAbsolute), shown);
}

} // namespace

void paintSensorHeader(QPainter& painter, const SensorSection& section,
                       const SensorSectionLayout& layout, const Colors& colors) {
    const QRect line = layout.headerLine();
    painter.setPen(colors.label);
    painter.setFont(TextStyle::section().font);
    paintName(painter, line, section.title(), leading(layout.direction));
    painter.setPen(colors.secondary);
    paintTabularText(painter, line, trailing(layout.direction), TextStyle::body().font,
                     section.count());
}

void paintSensorRow(QPainter& painter, const ShownSensorRow& shown, const Colors& colors,
                    Qt::LayoutDirection direction, const QRect& exposed) {
    const SensorRowLayout& layout = shown.layout;
    painter.fillRect(layout.row.adjusted(0, 0, 0, 1 - layout.row.height()), colors.line);
    // Text is what costs most, and a moving bar exposes none.
    if (layout.name.intersects(exposed)) {
        painter.setPen(colors.label);
        painter.setFont(TextStyle::body().font);
        paintName(painter, layout.name, shown.row.name, leading(direction));
    }
    if (layout.bar.intersects(exposed))
        paintBar(painter, layout.bar, shown.lit, colors);
    if (layout.value.intersects(exposed)) {
        painter.setPen(colors.figure(shown.row.value));
        paintTabularText(painter, layout.value, trailing(direction), valueFont(),
                         celsius(shown.row.value));
    }
}

void paintCurrentRow(QPainter& painter, const SensorRowLayout& layout, const Colors& colors) {
    const QRectF shape = layout.row.adjusted(-ringOutset, 1 + ringInset, ringOutset, -ringInset);
    painter.save();
    paintFocusRing(painter, shape, controlRadius, colors);
    painter.restore();
}

} // namespace tervale
