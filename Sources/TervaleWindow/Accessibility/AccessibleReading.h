#pragma once

#include <QString>
#include <QVariant>

namespace tervale {

/// The value of a value interface: assistive technology of a Mac reads it as a text, that of other
/// desktops as a number. `text` is what people read, with its unit.
QVariant accessibleReading(double number, const QString& text);

} // namespace tervale
