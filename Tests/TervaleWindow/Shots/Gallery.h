#pragma once

#include <QStringList>

namespace tervale {

/// The scales that pictures are kept in, as their file names tell them.
QStringList galleryScales();

/// Every scene, and every picture of the controls.
QStringList galleryNames();

/// The files of the pictures at one scale: each name in light and dark.
QStringList galleryFiles(const QString& scale);

} // namespace tervale
