#include "TervaleWindow/Controls/SymbolButton.h"

#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace tervale {

namespace {

constexpr int side = 26;
constexpr int symbolSide = 16;
constexpr int symbolButtonRadius = 6;

} // namespace

SymbolButton::SymbolButton(Symbol symbol, const QString& name, QWidget* parent)
    : QPushButton(parent),
      drawing(symbol) {
    setToolTip(name);
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    FocusRing::shared().surround(*this, symbolButtonRadius);
}

QMargins SymbolButton::overhang() {
    constexpr int aroundSymbol = (side - symbolSide) / 2;
    return QGuiApplication::isRightToLeft() ? QMargins(aroundSymbol, 0, 0, 0)
                                            : QMargins(0, 0, aroundSymbol, 0);
}

QSize SymbolButton::sizeHint() const {
    return {side, side};
}

QSize SymbolButton::minimumSizeHint() const {
    return sizeHint();
}

void SymbolButton::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::of(palette());
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    if (isDown() || (isEnabled() && underMouse()))
        paintBox(painter, rect(), symbolButtonRadius,
                 isDown() ? colors.quaternary : pressedShade(colors), Qt::transparent);
    QRectF place(0, 0, symbolSide, symbolSide);
    place.moveCenter(QRectF(rect()).center());
    paintSymbol(painter, drawing, place, isDown() ? colors.label : colors.secondary);
}

void SymbolButton::keyPressEvent(QKeyEvent* event) {
    if (menu() && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down))
        showMenu();
    else
        QPushButton::keyPressEvent(event);
}

} // namespace tervale
