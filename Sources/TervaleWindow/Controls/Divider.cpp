#include "TervaleWindow/Controls/Divider.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Controls/Decoration.h"

#include <QPainter>

namespace tervale {

Divider::Divider(Qt::Orientation orientation, QWidget* parent) : QWidget(parent) {
    if (orientation == Qt::Horizontal)
        setFixedHeight(1);
    else
        setFixedWidth(1);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    markAsDecoration(*this);
}

void Divider::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(contentsRect(), Colors::of(palette()).line);
}

} // namespace tervale
