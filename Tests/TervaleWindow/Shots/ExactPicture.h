#pragma once

#include <QByteArray>
#include <QImage>

namespace tervale {

/// Pictures without loss: what is read from the file has the pixels that were written.

/// A PNG file, of 24 bits a pixel, or of 32 where some are translucent. Its rows are stored
/// unfiltered: of flat grounds and letters that makes a file a fifth smaller than the toolkit's,
/// which filters each row.
QByteArray exactPNG(const QImage& image);

/// Whether all pixels are the same, whatever form they are held in.
bool samePixels(const QImage& first, const QImage& second);

} // namespace tervale
