#include "TervaleWindow/Style/FieldPainting.h"

#include "TervaleWindow/Style/ButtonPainting.h"
#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <QStyle>
#include <QVariant>

#include <algorithm>

namespace tervale {

namespace {

constexpr const char* searchFieldProperty = "tervaleSearchField";

// QLineEdit itself keeps two more pixels on either side of its text.
constexpr int fieldPadding = 8;
// Beside the magnifier, which brings its own distance.
constexpr int searchPadding = 1;

void fade(QPainter& painter, const QStyleOption& option) {
    painter.setOpacity(option.state & QStyle::State_Enabled ? 1 : disabledOpacity);
}

bool isInsideSpinBox(const QWidget* widget) {
    return widget && qobject_cast<const QAbstractSpinBox*>(widget->parentWidget());
}

} // namespace

void markAsSearchField(QLineEdit& field) {
    field.setProperty(searchFieldProperty, true);
    setFocusRadius(field, searchRadius);
}

bool isSearchField(const QWidget* widget) {
    return widget && widget->property(searchFieldProperty).toBool();
}

void paintField(QPainter& painter, const QStyleOptionFrame& option, const QWidget* widget) {
    if (isInsideSpinBox(widget) || option.lineWidth == 0)
        return;
    const Colors colors = Colors::of(option.palette);
    painter.save();
    fade(painter, option);
    if (isSearchField(widget))
        paintBox(painter, option.rect, searchRadius, colors.quaternary, Qt::transparent);
    else
        paintControlBox(painter, option.rect, colors);
    painter.restore();
}

QRect fieldContents(const QStyleOption& option, const QWidget* widget) {
    if (isInsideSpinBox(widget))
        return option.rect;
    const int padding = isSearchField(widget) ? searchPadding : fieldPadding;
    return option.rect.adjusted(padding, 1, -padding, -1);
}

QSize fieldSize(const QSize& contents) {
    return {contents.width() + 2 * fieldPadding, std::max(fieldHeight, contents.height())};
}

void paintSpinBox(QPainter& painter, const QStyleOptionComplex& option) {
    painter.save();
    fade(painter, option);
    paintControlBox(painter, option.rect, Colors::of(option.palette));
    painter.restore();
}

QRect spinBoxRect(const QStyleOptionComplex& option, QStyle::SubControl part) {
    if (part == QStyle::SC_SpinBoxFrame)
        return option.rect;
    // Without buttons: the arrow keys step.
    if (part == QStyle::SC_SpinBoxEditField)
        return option.rect.adjusted(fieldPadding, 1, -fieldPadding, -1);
    return {};
}

QSize spinBoxSize(const QSize& contents, const QFontMetrics& metrics) {
    return {contents.width() + 2 * fieldPadding, std::max(buttonHeight, metrics.height() + 8)};
}

void paintToolTip(QPainter& painter, const QStyleOption& option) {
    painter.fillRect(option.rect, option.palette.color(QPalette::ToolTipBase));
    QColor line = option.palette.color(QPalette::ToolTipText);
    line.setAlphaF(0.2f);
    painter.setPen(line);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
}

void ClearIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(128, 128, 132));
    const qreal side = std::min(rect.width(), rect.height());
    const QPointF centre = QRectF(rect).center();
    painter->drawEllipse(centre, side * 0.47, side * 0.47);
    painter->setPen(QPen(Qt::white, side * 0.09, Qt::SolidLine, Qt::RoundCap));
    const qreal arm = side * 0.17;
    painter->drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
    painter->drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
    painter->restore();
}

QPixmap ClearIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
}

QIconEngine* ClearIconEngine::clone() const {
    return new ClearIconEngine(*this);
}

} // namespace tervale
