#include "TervaleWindow/Shots/ExactPicture.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tervale {

namespace {

constexpr char signature[] = "\x89PNG\r\n\x1a\n";
constexpr char bitsOfAComponent = 8;
constexpr char withoutAlpha = 2;
constexpr char withAlpha = 6;
constexpr char unfiltered = 0;
constexpr int bestCompression = 9;

/// Most significant byte first.
QByteArray fourBytes(std::uint32_t number) {
    QByteArray bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        bytes += static_cast<char>(number >> shift & 0xFFU);
    return bytes;
}

/// As PNG wants it of a chunk.
std::uint32_t checksum(const QByteArray& bytes) {
    std::uint32_t sum = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1U ^ ((sum & 1U) ? 0xEDB88320U : 0U);
    }
    return ~sum;
}

// A chunk: the length of its data, its kind, its data, and the checksum of both.
QByteArray chunk(const char* kind, const QByteArray& data) {
    const QByteArray checked = kind + data;
    return fourBytes(static_cast<std::uint32_t>(data.size())) + checked +
           fourBytes(checksum(checked));
}

QByteArray rows(const QImage& pixels) {
    QByteArray bytes;
    const qsizetype row = 1 + static_cast<qsizetype>(pixels.width()) * pixels.depth() / 8;
    bytes.reserve(row * pixels.height());
    for (int y = 0; y < pixels.height(); ++y) {
        bytes += unfiltered;
        bytes.append(reinterpret_cast<const char*>(pixels.constScanLine(y)), row - 1);
    }
    return bytes;
}

/// What the toolkit puts before the stream: the length of what was compressed.
constexpr qsizetype lengthBeforeStream = 4;

} // namespace

QByteArray exactPNG(const QImage& image) {
    const bool translucent = image.hasAlphaChannel();
    // By way of what `samePixels` compares.
    const QImage pixels =
        image.convertToFormat(QImage::Format_ARGB32)
            .convertToFormat(translucent ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    QByteArray header = fourBytes(static_cast<std::uint32_t>(pixels.width())) +
                        fourBytes(static_cast<std::uint32_t>(pixels.height()));
    header += bitsOfAComponent;
    header += translucent ? withAlpha : withoutAlpha;
    // The only compression, the only set of filters, and no interlacing.
    header.append(3, '\0');
    const QByteArray data = qCompress(rows(pixels), bestCompression).mid(lengthBeforeStream);
    return signature + chunk("IHDR", header) + chunk("IDAT", data) + chunk("IEND", {});
}

bool samePixels(const QImage& first, const QImage& second) {
    return first.convertToFormat(QImage::Format_ARGB32) ==
           second.convertToFormat(QImage::Format_ARGB32);
}

} // namespace tervale
