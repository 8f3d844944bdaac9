#include "TervaleWindow/Appearance/TabularText.h"

#include <QFontMetricsF>

#include <algorithm>
#include <vector>

namespace tervale {

namespace {

bool isPlainDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// Cells are placed from left to right, one a digit, which fits neither scripts written from the
/// right nor digits whose shapes depend on their neighbours.
bool needsTheTextEngine(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        const QChar::Direction direction = character.direction();
        return direction == QChar::DirR || direction == QChar::DirAL ||
               (character.isDigit() && !isPlainDigit(character));
    });
}

struct Piece {
    QString text;
    /// Where its first glyph begins, and how far the next piece is from there.
    qreal offset = 0;
    qreal advance = 0;
};

qreal widestDigit(const QFontMetricsF& metrics) {
    qreal widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    return widest;
}

qsizetype endOfRun(const QString& text, qsizetype start) {
    const auto found = std::find_if(text.begin() + start, text.end(), isPlainDigit);
    return found - text.begin();
}

std::vector<Piece> pieces(const QFontMetricsF& metrics, const QString& text) {
    if (needsTheTextEngine(text))
        return {{text, 0, metrics.horizontalAdvance(text)}};
    const qreal cell = widestDigit(metrics);
    std::vector<Piece> result;
    for (qsizetype start = 0; start < text.size();) {
        if (isPlainDigit(text[start])) {
            const QString digit = text.mid(start, 1);
            result.push_back({digit, (cell - metrics.horizontalAdvance(digit)) / 2, cell});
            ++start;
        } else {
            const qsizetype end = endOfRun(text, start);
            const QString run = text.mid(start, end - start);
            result.push_back({run, 0, metrics.horizontalAdvance(run)});
            start = end;
        }
    }
    return result;
}

qreal totalAdvance(const std::vector<Piece>& line) {
    qreal width = 0;
    for (const Piece& piece : line)
        width += piece.advance;
    return width;
}

qreal leftEdge(const QRectF& bounds, Qt::Alignment alignment, qreal width) {
    if (alignment & Qt::AlignRight)
        return bounds.right() - width;
    if (alignment & Qt::AlignHCenter)
        return bounds.center().x() - width / 2;
    return bounds.left();
}

qreal baseline(const QRectF& bounds, Qt::Alignment alignment, const QFontMetricsF& metrics) {
    if (alignment & Qt::AlignBottom)
        return bounds.bottom() - metrics.descent();
    if (alignment & Qt::AlignVCenter)
        return bounds.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    return bounds.top() + metrics.ascent();
}

} // namespace

qreal tabularTextWidth(const QFont& font, const QString& text) {
    return totalAdvance(pieces(QFontMetricsF(font), text));
}

void paintTabularText(QPainter& painter, const QRectF& bounds, Qt::Alignment alignment,
                      const QFont& font, const QString& text) {
    const QFontMetricsF metrics(font, painter.device());
    const std::vector<Piece> line = pieces(metrics, text);
    qreal x = leftEdge(bounds, alignment, totalAdvance(line));
    const qreal y = baseline(bounds, alignment, metrics);
    painter.save();
    painter.setFont(font);
    // The pieces are in their visual order; left to itself, each would turn for a script from the
    // right.
    if (!needsTheTextEngine(text))
        painter.setLayoutDirection(Qt::LeftToRight);
    for (const Piece& piece : line) {
        painter.drawText(QPointF(x + piece.offset, y), piece.text);
        x += piece.advance;
    }
    painter.restore();
}

} // namespace tervale
