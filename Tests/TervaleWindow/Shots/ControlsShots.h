#pragma once

#include <QString>

#include <functional>

namespace tervale {

/// Draws every control, with and without the focus, an open list and an open menu, into the files
/// that `pathOf` gives for their names.
void drawControls(const std::function<QString(const QString& name)>& pathOf);

} // namespace tervale
