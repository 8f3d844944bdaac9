#include "TervaleWindow/Controls/SegmentButton.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FocusRing.h"

namespace tervale {

namespace {

constexpr int cornerRadius = 6;
constexpr int segmentHeight = 24;
constexpr int segmentPadding = 14;

QFont fontOf(bool selected) {
    return systemFont(fontSize::body, selected ? QFont::Medium : QFont::Normal);
}

/// In high contrast the selected segment changes colours with its text: any other ground is too
/// near the one that the segments lie on.
QColor selectedFill(const Colors& colors) {
    if (!colors.dark && !colors.highContrast)
        return colors.card;
    const float share = colors.highContrast ? 1 : 0.28f;
    const auto mix = [share](float from, float to) { return from + share * (to - from); };
    return QColor::fromRgbF(mix(colors.card.redF(), colors.label.redF()),
                            mix(colors.card.greenF(), colors.label.greenF()),
                            mix(colors.card.blueF(), colors.label.blueF()));
}

QColor textColor(const Colors& colors, bool selected) {
    return selected && colors.highContrast ? colors.card : colors.label;
}

void paintSelection(QPainter& painter, const QRectF& segment, const Colors& colors) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 24));
    painter.drawRoundedRect(segment.translated(0, 1), cornerRadius, cornerRadius);
    painter.setBrush(selectedFill(colors));
    painter.drawRoundedRect(segment, cornerRadius, cornerRadius);
}

} // namespace

SegmentButton::SegmentButton(const QString& title, QWidget* parent) : QRadioButton(title, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    FocusRing::shared().surround(*this, cornerRadius);
}

// As wide as when it is selected, so that nothing moves then.
QSize SegmentButton::sizeHint() const {
    return {QFontMetrics(fontOf(true)).horizontalAdvance(text()) + 2 * segmentPadding,
            segmentHeight};
}

QSize SegmentButton::minimumSizeHint() const {
    return {2 * segmentHeight, segmentHeight};
}

bool SegmentButton::hitButton(const QPoint& point) const {
    return rect().contains(point);
}

void SegmentButton::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    if (isChecked())
        paintSelection(painter, rect(), colors);
    const QFont shown = fontOf(isChecked());
    painter.setFont(shown);
    painter.setPen(textColor(colors, isChecked()));
    painter.drawText(rect(), Qt::AlignCenter,
                     QFontMetrics(shown).elidedText(text(), Qt::ElideRight, width() - 8));
}

} // namespace tervale
