#include "TervaleWindow/Controls/Card.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Style/ControlPainting.h"

#include <QPainter>

namespace tervale {

namespace {

constexpr QMargins usualPadding{18, 16, 18, 16};
constexpr int lineWidth = 1;

void paintShadow(QPainter& painter, const QRectF& panel) {
    // Two pale copies, each a little lower, come close to a blur of two pixels.
    QColor shade(Qt::black);
    painter.setPen(Qt::NoPen);
    for (const auto& [drop, alpha] : {std::pair(1.8, 0.018f), std::pair(1.0, 0.028f)}) {
        shade.setAlphaF(alpha);
        painter.setBrush(shade);
        painter.drawRoundedRect(panel.translated(0, drop), Card::cornerRadius, Card::cornerRadius);
    }
}

} // namespace

Card::Card(QWidget* parent) : QWidget(parent) {
    setPadding(usualPadding);
}

void Card::setPadding(const QMargins& padding) {
    setContentsMargins(padding + QMargins(lineWidth, lineWidth, lineWidth, lineWidth) +
                       QMargins(0, 0, 0, shadowHeight));
}

QRect Card::panel() const {
    return rect().adjusted(0, 0, 0, -shadowHeight);
}

void Card::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!colors.dark)
        paintShadow(painter, panel());
    paintBox(painter, panel(), cornerRadius, colors.card, colors.line);
}

} // namespace tervale
