#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <QWidget>

#include <vector>

namespace tervale {

/// A piece of text as a widget paints it.
struct PaintedText {
    QString text;
    /// With the painter's opacity.
    QColor color;
    /// In the widget's logical pixels.
    QRect place;
};

/// Every piece of text that a widget and its children paint.
std::vector<PaintedText> paintedTexts(QWidget& widget);

/// How far a text stands out from what is painted around it, from 1 to 21.
double contrast(const PaintedText& text, const QImage& picture);

} // namespace tervale
