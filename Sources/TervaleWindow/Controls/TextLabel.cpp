#include "TervaleWindow/Controls/TextLabel.h"

#include "TervaleWindow/Style/ControlPainting.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

/// Breaks `layout`'s text into lines of `width` and places them below one another.
int placeLines(QTextLayout& layout, int width, int lineHeight) {
    int lines = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const qreal slack = lineHeight - (line.ascent() + line.descent());
        line.setPosition(QPointF(0, lines * lineHeight + std::round(slack / 2)));
        ++lines;
    }
    layout.endLayout();
    return lines;
}

} // namespace

TextLabel::TextLabel(const QString& text, const TextStyle& style, Foreground wanted,
                     QWidget* parent)
    : QLabel(parent),
      foreground(wanted) {
    setTextFormat(Qt::PlainText);
    setTextStyle(style);
    setText(text);
}

void TextLabel::setForeground(const Foreground& wanted) {
    if (wanted == foreground)
        return;
    foreground = wanted;
    update();
}

void TextLabel::setTextStyle(const TextStyle& style) {
    setting = style;
    setFont(style.font);
    updateGeometry();
}

void TextLabel::setOverflow(Overflow overflow) {
    whenTooWide = overflow;
    setWordWrap(overflow == Overflow::wrap);
    QSizePolicy policy = sizePolicy();
    policy.setHeightForWidth(overflow == Overflow::wrap);
    setSizePolicy(policy);
    updateGeometry();
}

QSize TextLabel::sizeHint() const {
    return {naturalWidth(), setting.lineHeight};
}

QSize TextLabel::minimumSizeHint() const {
    const int shortest = fontMetrics().horizontalAdvance(QStringLiteral("MMM…"));
    const bool whole = whenTooWide == Overflow::demand;
    return {whole ? naturalWidth() : std::min(naturalWidth(), shortest), setting.lineHeight};
}

bool TextLabel::hasHeightForWidth() const {
    return whenTooWide == Overflow::wrap;
}

int TextLabel::heightForWidth(int width) const {
    if (!hasHeightForWidth())
        return -1;
    Measured& known = measured();
    for (const auto& [asked, lines] : known.lines) {
        if (asked == width)
            return lines * setting.lineHeight;
    }
    QTextLayout layout(text(), font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    const int lines = std::max(1, placeLines(layout, width, setting.lineHeight));
    known.lines.at(known.next++ % known.lines.size()) = {width, lines};
    return lines * setting.lineHeight;
}

int TextLabel::naturalWidth() const {
    Measured& known = measured();
    if (!known.width)
        known.width = fontMetrics().horizontalAdvance(text()) + 1;
    return *known.width;
}

// A layout asks several times before it is done, and asking the text engine is slow.
TextLabel::Measured& TextLabel::measured() const {
    if (!lastMeasured || lastMeasured->text != text() || lastMeasured->font != font())
        lastMeasured = Measured{text(), font()};
    return *lastMeasured;
}

void TextLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    painter.setPen(color(foreground, Colors::of(palette())));
    const bool wraps = whenTooWide == Overflow::wrap;
    const QString shown =
        wraps ? text() : fontMetrics().elidedText(text(), Qt::ElideRight, width());
    QTextLayout layout(shown, font());
    QTextOption option(QStyle::visualAlignment(layoutDirection(), alignment()));
    option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    option.setTextDirection(layoutDirection());
    layout.setTextOption(option);
    const int height = placeLines(layout, width(), setting.lineHeight) * setting.lineHeight;
    const bool top = alignment() & Qt::AlignTop;
    layout.draw(&painter, QPointF(0, top ? 0 : std::floor((this->height() - height) / 2.0)));
}

} // namespace tervale
