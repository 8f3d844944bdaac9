#include "TervaleWindow/Appearance/SymbolShape.h"

#include "Base/Precondition.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

// The macro has to stand outside of every namespace.
static void loadDrawings() {
    Q_INIT_RESOURCE(symbols);
}

namespace tervale {

namespace {

/// The width that each drawing gives to its lines, once, for all that is in it.
constexpr QByteArrayView givenLineWidth("stroke-width=\"1.32\"");

QByteArray drawing(Symbol symbol, qreal lineWidth) {
    // A static library's resources are not loaded by themselves.
    loadDrawings();
    QFile file(QStringLiteral(":/tervale/symbols/%1.svg").arg(symbolName(symbol)));
    precondition(file.open(QFile::ReadOnly), "a symbol has no drawing");
    QByteArray text = file.readAll();
    const QByteArray width = "stroke-width=\"" + QByteArray::number(lineWidth) + '"';
    return text.replace(givenLineWidth, width);
}

} // namespace

QImage symbolShape(Symbol symbol, const QSize& size, const QRectF& square, qreal lineWidth) {
    QSvgRenderer renderer(drawing(symbol, lineWidth));
    precondition(renderer.isValid(), "the drawing of a symbol cannot be read");
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, square);
    painter.end();
    return image;
}

} // namespace tervale
