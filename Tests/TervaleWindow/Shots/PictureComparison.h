#pragma once

#include <QImage>

namespace tervale {

/// What two pictures of the same thing have in common.
struct PictureComparison {
    bool sameSize = false;
    /// How many pixels are of another colour, beyond what the rounding of edges makes.
    qsizetype differing = 0;

    /// A few lone pixels pass: another release of a font's renderer sets them otherwise.
    bool passes() const;
};

PictureComparison compare(const QImage& was, const QImage& is);

/// What differs in red, on what is there in pale grey.
QImage differencePicture(const QImage& was, const QImage& is);

} // namespace tervale
