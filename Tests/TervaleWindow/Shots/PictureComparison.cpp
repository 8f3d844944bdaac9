#include "TervaleWindow/Shots/PictureComparison.h"

#include <algorithm>
#include <cstdlib>

namespace tervale {

namespace {

bool differ(QRgb first, QRgb second) {
    const auto far = [](int one, int other) { return std::abs(one - other) > channelTolerance; };
    return far(qRed(first), qRed(second)) || far(qGreen(first), qGreen(second)) ||
           far(qBlue(first), qBlue(second)) || far(qAlpha(first), qAlpha(second));
}

QImage comparable(const QImage& image) {
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

bool PictureComparison::passes() const {
    return sameSize && differing == 0;
}

PictureComparison compare(const QImage& was, const QImage& is) {
    if (was.size() != is.size() || was.isNull())
        return {};
    const QImage before = comparable(was);
    const QImage now = comparable(is);
    PictureComparison comparison{.sameSize = true};
    for (int y = 0; y < now.height(); ++y) {
        const auto* first = reinterpret_cast<const QRgb*>(before.constScanLine(y));
        const auto* second = reinterpret_cast<const QRgb*>(now.constScanLine(y));
        for (int x = 0; x < now.width(); ++x)
            comparison.differing += differ(first[x], second[x]) ? 1 : 0;
    }
    return comparison;
}

QImage differencePicture(const QImage& was, const QImage& is) {
    const QImage before = comparable(was);
    const QImage now = comparable(is);
    QImage picture(std::max(was.width(), is.width()), std::max(was.height(), is.height()),
                   QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool inBoth = before.valid(x, y) && now.valid(x, y);
            const bool same = inBoth && !differ(before.pixel(x, y), now.pixel(x, y));
            const int pale = same ? 192 + qGray(now.pixel(x, y)) / 4 : 0;
            picture.setPixel(x, y, same ? qRgb(pale, pale, pale) : qRgb(220, 0, 0));
        }
    }
    return picture;
}

} // namespace tervale
