#pragma once

#include <QByteArray>

namespace tervale {

/// The argument that has the program draw a picture for the command line, rather than open a
/// window: a document of SVG comes in by standard input, a PNG file goes out by standard output.
inline constexpr const char* drawPictureArgument = "--draw-picture";

/// The PNG file of a document of SVG, at twice its size; empty for a text that is none. Needs the
/// application object of the toolkit, for its fonts.
QByteArray pngOf(const QByteArray& svg);

/// Performs what the argument asks for. The program's exit status.
int drawPicture(int count, char** arguments);

} // namespace tervale
