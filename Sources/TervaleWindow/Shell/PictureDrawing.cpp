#include "TervaleWindow/Shell/PictureDrawing.h"

#include "Base/Terminal.h"

#include <QBuffer>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QOperatingSystemVersion>
#include <QPainter>
#include <QRegularExpression>
#include <QStringList>
#include <QSvgRenderer>

namespace tervale {

namespace {

// By number: the C library's streams are of a type that each system names otherwise.
constexpr int standardInput = 0;
constexpr int standardOutput = 1;

constexpr int scale = 2;
/// No picture that is drawn for people is larger, in pixels a side.
constexpr int largestSide = 8192;

/// The toolkit takes a document's list of families for the name of one.
void knowFamiliesOf(const QByteArray& svg) {
    static const QRegularExpression lists(QStringLiteral("font-family=\"([^\"]+)\""));
    auto found = lists.globalMatch(QString::fromUtf8(svg));
    while (found.hasNext()) {
        const QString list = found.next().captured(1);
        QStringList families = list.split(QLatin1Char(','));
        for (QString& family : families)
            family = family.remove(QLatin1Char('\'')).trimmed();
        QFont::insertSubstitutions(list, families);
    }
}

} // namespace

QByteArray pngOf(const QByteArray& svg) {
    knowFamiliesOf(svg);
    QSvgRenderer renderer(svg);
    const QSize size = renderer.defaultSize() * scale;
    if (!renderer.isValid() || size.isEmpty() || size.width() > largestSide ||
        size.height() > largestSide)
        return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "PNG") ? png : QByteArray();
}

int drawPicture(int count, char** arguments) {
    // Nothing is shown, so that no display is needed.
    if (QOperatingSystemVersion::currentType() != QOperatingSystemVersion::MacOS)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    QFile in;
    QFile out;
    if (!in.open(standardInput, QIODevice::ReadOnly) ||
        !out.open(standardOutput, QIODevice::WriteOnly))
        return exitStatus::failure;
    const QByteArray png = pngOf(in.readAll());
    if (png.isEmpty() || out.write(png) != png.size() || !out.flush())
        return exitStatus::failure;
    return exitStatus::done;
}

} // namespace tervale
