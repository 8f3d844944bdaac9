#pragma once

#include <QImage>

namespace tervale {

/// Of a channel's 255 steps, how many a pixel may be off. The nearest of the grounds that lie on
/// each other, a card and its plot, are six apart, and a card's shadow is four. The toolkit blends
/// by the instructions that a processor has, which round a step apart in each layer.
inline constexpr int channelTolerance = 2;

/// What two pictures of the same thing have in common.
struct PictureComparison {
    bool sameSize = false;
    /// How many pixels are further off than the tolerance.
    qsizetype differing = 0;

    /// No pixel may differ: edges and letters are the same wherever the toolkit and the typeface
    /// are.
    bool passes() const;
};

PictureComparison compare(const QImage& was, const QImage& is);

/// What differs in red, on what is there in pale grey.
QImage differencePicture(const QImage& was, const QImage& is);

} // namespace tervale
