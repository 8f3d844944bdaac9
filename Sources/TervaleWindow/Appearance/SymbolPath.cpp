#include "TervaleWindow/Appearance/SymbolPath.h"

#include <QPainterPathStroker>
#include <QTransform>

#include <initializer_list>

namespace tervale {

namespace {

struct Line {
    QPointF from;
    QPointF to;
};

QPainterPath stroked(const QPainterPath& path, qreal width) {
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    stroker.setCurveThreshold(0.02);
    QPainterPath outline = stroker.createStroke(path);
    outline.setFillRule(Qt::WindingFill);
    return outline;
}

void addLines(QPainterPath& path, std::initializer_list<Line> lines) {
    for (const Line& line : lines) {
        path.moveTo(line.from);
        path.lineTo(line.to);
    }
}

QPainterPath linesPath(std::initializer_list<Line> lines) {
    QPainterPath path;
    addLines(path, lines);
    return path;
}

QPainterPath blades() {
    QPainterPath blade(QPointF(12, 10));
    blade.cubicTo(10.5, 7, 11, 3, 14, 3);
    blade.cubicTo(17, 3, 17.5, 7.5, 13.5, 10.3);
    QPainterPath path;
    for (int quarter = 0; quarter < 4; ++quarter)
        path.addPath(
            QTransform().translate(12, 12).rotate(90 * quarter).translate(-12, -12).map(blade));
    return path;
}

QPainterPath fan() {
    QPainterPath path = blades();
    path.addEllipse(QPointF(12, 12), 2, 2);
    return path;
}

QPainterPath slashedFan(qreal lineWidth) {
    const QPainterPath slash = linesPath({{{4, 4}, {20, 20}}});
    // The fan keeps clear of the slash, which would drown among the blades.
    QPainterPath path =
        stroked(fan(), lineWidth).simplified().subtracted(stroked(slash, lineWidth * 2.6));
    path.addPath(stroked(slash, lineWidth));
    path.setFillRule(Qt::WindingFill);
    return path;
}

// United rather than added: where the two run in opposite senses, the fill rule would cut a gap.
QPainterPath filled(const QPainterPath& path, qreal lineWidth) {
    return stroked(path, lineWidth).simplified().united(path.simplified());
}

QPainterPath filledFan(qreal lineWidth) {
    QPainterPath hub;
    hub.addEllipse(QPointF(12, 12), 2, 2);
    QPainterPath path = filled(blades(), lineWidth).subtracted(stroked(hub, lineWidth * 0.8));
    path.addPath(hub);
    return path;
}

QPainterPath thermometer() {
    QPainterPath path(QPointF(14, 14.5));
    path.lineTo(14, 5);
    path.arcTo(QRectF(10, 3, 4, 4), 0, 180);
    path.lineTo(10, 14.5);
    // The bulb of radius 4 stands on the tube's ends, 60 degrees apart as seen from its centre.
    path.arcTo(QRectF(8, 13.964, 8, 8), 120, 300);
    path.closeSubpath();
    addLines(path, {{{12, 9}, {12, 17}}});
    return path;
}

QPainterPath sliders() {
    QPainterPath path = linesPath(
        {{{3, 7}, {14, 7}}, {{18, 7}, {21, 7}}, {{3, 17}, {6, 17}}, {{10, 17}, {21, 17}}});
    path.addEllipse(QPointF(16, 7), 2, 2);
    path.addEllipse(QPointF(8, 17), 2, 2);
    return path;
}

QPainterPath gear() {
    QPainterPath path;
    path.addEllipse(QPointF(12, 12), 3, 3);
    path.addEllipse(QPointF(12, 12), 6.8, 6.8);
    const QPainterPath tooth = linesPath({{{12, 3}, {12, 5.2}}});
    for (int eighth = 0; eighth < 8; ++eighth)
        path.addPath(
            QTransform().translate(12, 12).rotate(45 * eighth).translate(-12, -12).map(tooth));
    return path;
}

QPainterPath chip() {
    QPainterPath path;
    path.addRoundedRect(QRectF(6, 6, 12, 12), 2, 2);
    path.addRect(QRectF(10, 10, 4, 4));
    for (const qreal place : {9.0, 15.0})
        addLines(path, {{{place, 3}, {place, 6}},
                        {{place, 18}, {place, 21}},
                        {{3, place}, {6, place}},
                        {{18, place}, {21, place}}});
    return path;
}

QPainterPath triangle() {
    QPainterPath path(QPointF(12, 4));
    path.lineTo(2.5, 20);
    path.lineTo(21.5, 20);
    path.closeSubpath();
    return path;
}

QPainterPath exclamationMark() {
    return linesPath({{{12, 10}, {12, 14}}, {{12, 17}, {12, 17.2}}});
}

QPainterPath markedTriangle() {
    QPainterPath path = triangle();
    path.addPath(exclamationMark());
    return path;
}

QPainterPath filledTriangle(qreal lineWidth) {
    return filled(triangle(), lineWidth)
        .subtracted(stroked(exclamationMark(), lineWidth * 1.1).simplified());
}

QPainterPath stopwatch() {
    QPainterPath path;
    path.addEllipse(QPointF(12, 13), 8, 8);
    addLines(path, {{{12, 13}, {12, 8.5}}, {{9.5, 2.5}, {14.5, 2.5}}});
    return path;
}

QPainterPath magnifier() {
    QPainterPath path;
    path.addEllipse(QPointF(11, 11), 6.5, 6.5);
    addLines(path, {{{16, 16}, {21, 21}}});
    return path;
}

QPainterPath plusOnSquares() {
    QPainterPath path;
    path.addRoundedRect(QRectF(8, 8, 12, 12), 2, 2);
    // What the front square leaves to be seen of the one behind.
    path.moveTo(16, 8);
    path.lineTo(16, 6);
    path.arcTo(QRectF(12, 4, 4, 4), 0, 90);
    path.lineTo(6, 4);
    path.arcTo(QRectF(4, 4, 4, 4), 90, 90);
    path.lineTo(4, 14);
    path.arcTo(QRectF(4, 12, 4, 4), 180, 90);
    path.lineTo(8, 16);
    addLines(path, {{{14, 11}, {14, 17}}, {{11, 14}, {17, 14}}});
    return path;
}

QPainterPath minusInCircle() {
    QPainterPath path;
    path.addEllipse(QPointF(12, 12), 9, 9);
    addLines(path, {{{8, 12}, {16, 12}}});
    return path;
}

QPainterPath chevrons() {
    QPainterPath path(QPointF(8, 10));
    path.lineTo(12, 6);
    path.lineTo(16, 10);
    path.moveTo(8, 14);
    path.lineTo(12, 18);
    path.lineTo(16, 14);
    return path;
}

} // namespace

QPainterPath symbolPath(Symbol symbol, qreal lineWidth) {
    switch (symbol) {
    case Symbol::fan:
        return stroked(fan(), lineWidth);
    case Symbol::fanSlash:
        return slashedFan(lineWidth);
    case Symbol::fanFill:
        return filledFan(lineWidth);
    case Symbol::thermometerMedium:
        return stroked(thermometer(), lineWidth);
    case Symbol::sliderHorizontal3:
        return stroked(sliders(), lineWidth);
    case Symbol::gearshape:
        return stroked(gear(), lineWidth);
    case Symbol::cpu:
        return stroked(chip(), lineWidth);
    case Symbol::exclamationTriangle:
        return stroked(markedTriangle(), lineWidth);
    case Symbol::exclamationTriangleFill:
        return filledTriangle(lineWidth);
    case Symbol::timer:
        return stroked(stopwatch(), lineWidth);
    case Symbol::magnifyingGlass:
        return stroked(magnifier(), lineWidth);
    case Symbol::plus:
        return stroked(linesPath({{{12, 5}, {12, 19}}, {{5, 12}, {19, 12}}}), lineWidth);
    case Symbol::plusSquareOnSquare:
        return stroked(plusOnSquares(), lineWidth);
    case Symbol::minus:
        return stroked(linesPath({{{5, 12}, {19, 12}}}), lineWidth);
    case Symbol::minusCircle:
        return stroked(minusInCircle(), lineWidth);
    case Symbol::chevronUpDown:
        return stroked(chevrons(), lineWidth);
    }
    return {};
}

} // namespace tervale
