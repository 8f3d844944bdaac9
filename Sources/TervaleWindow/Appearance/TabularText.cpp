#include "TervaleWindow/Appearance/TabularText.h"

#include <QFontMetricsF>
#include <QHash>

#include <algorithm>
#include <array>
#include <utility>
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

/// Of the ten digits in one font.
struct DigitWidths {
    std::array<qreal, 10> each{};
    qreal widest = 0;

    qreal of(QChar digit) const {
        return each.at(static_cast<std::size_t>(digit.unicode() - u'0'));
    }
};

DigitWidths measureDigits(const QFontMetricsF& metrics) {
    DigitWidths widths;
    for (std::size_t digit = 0; digit < widths.each.size(); ++digit) {
        const qreal width = metrics.horizontalAdvance(QChar(u'0' + static_cast<char16_t>(digit)));
        widths.each.at(digit) = width;
        widths.widest = std::max(widths.widest, width);
    }
    return widths;
}

/// A font on what it is painted on; on nothing, it measures by its own resolution.
struct Face {
    explicit Face(const QFont& font) : font(font), metrics(font) {}
    Face(const QFont& font, const QPaintDevice& device)
        : font(font),
          metrics(font, &device),
          resolution(device.logicalDpiY()) {}

    QFont font;
    QFontMetricsF metrics;
    int resolution = 0;
};

// Asking the text engine is slow, layouts ask often, and the window has few fonts.
const DigitWidths& digitWidths(const Face& face) {
    static QHash<std::pair<QString, int>, DigitWidths> known;
    const std::pair key(face.font.key(), face.resolution);
    auto found = known.constFind(key);
    if (found == known.constEnd())
        found = known.insert(key, measureDigits(face.metrics));
    return *found;
}

qsizetype endOfRun(const QString& text, qsizetype start) {
    const auto found = std::find_if(text.begin() + start, text.end(), isPlainDigit);
    return found - text.begin();
}

std::vector<Piece> pieces(const Face& face, const QString& text) {
    if (needsTheTextEngine(text))
        return {{text, 0, face.metrics.horizontalAdvance(text)}};
    const DigitWidths& widths = digitWidths(face);
    std::vector<Piece> result;
    for (qsizetype start = 0; start < text.size();) {
        if (isPlainDigit(text[start])) {
            const QString digit = text.mid(start, 1);
            result.push_back({digit, (widths.widest - widths.of(text[start])) / 2, widths.widest});
            ++start;
        } else {
            const qsizetype end = endOfRun(text, start);
            const QString run = text.mid(start, end - start);
            result.push_back({run, 0, face.metrics.horizontalAdvance(run)});
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

bool hasDigitCells(const QString& text) {
    return !needsTheTextEngine(text);
}

qreal tabularTextWidth(const QFont& font, const QString& text) {
    return totalAdvance(pieces(Face(font), text));
}

void paintTabularText(QPainter& painter, const QRectF& bounds, Qt::Alignment alignment,
                      const QFont& font, const QString& text) {
    const Face face(font, *painter.device());
    const std::vector<Piece> line = pieces(face, text);
    qreal x = leftEdge(bounds, alignment, totalAdvance(line));
    const qreal y = baseline(bounds, alignment, face.metrics);
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
