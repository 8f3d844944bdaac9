#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <functional>

namespace tervale {

/// The names of the pictures that `drawControls` hands out.
QStringList controlsPictures();

/// Draws every control, with and without the focus, an open list and an open menu, and hands out
/// the pictures with their names.
void drawControls(const std::function<void(const QString& name, const QImage& image)>& take);

} // namespace tervale
