#pragma once

#include <QString>

namespace tervale {

/// A name as the title of an entry in a menu, which would take an ampersand for a key and a tab for
/// a shortcut.
QString menuTitle(QString name);

} // namespace tervale
