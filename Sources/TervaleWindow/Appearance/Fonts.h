#pragma once

#include <QFont>
#include <QStringList>

namespace tervale {

/// Sizes in logical pixels.
namespace fontSize {
inline constexpr int caption2 = 10;
inline constexpr int caption = 11;
inline constexpr int callout = 12;
inline constexpr int subheadline = 12;
inline constexpr int body = 13;
inline constexpr int title = 15;
} // namespace fontSize

/// Lets text be as heavy as its font is drawn. On Linux the font engine otherwise emboldens the
/// small text of fonts of the kind that "Inter" is. What the user set for the engine stays. Before
/// the first text of the process.
void keepDesignedWeight();

/// The user interface's font. On Linux "Inter" where it is installed, elsewhere the system's own.
QFont systemFont(int size, QFont::Weight weight = QFont::Normal);
/// The same in the rounded design where the system has one.
QFont roundedFont(int size, QFont::Weight weight = QFont::Normal);

/// The first of these families that the system has; `otherwise` if it has none of them.
QString firstInstalledFamily(const QStringList& families, const QString& otherwise);
/// The families in a font file, which can be used from now on; none if it cannot be read.
QStringList familiesInFile(const QString& path);

} // namespace tervale
