#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace tervale {

// What the programs write to a terminal, in UTF-8.

/// The text with a space for every character that a terminal obeys or that hides: control
/// characters, line and paragraph separators, marks of direction and other invisible marks. The
/// joiner of emoji stays. Ill-formed UTF-8 becomes U+FFFD.
std::string printable(std::string_view text);

/// Writes the text to the stream and flushes it. False if the stream did not take all of it.
[[nodiscard]] bool print(std::FILE* stream, std::string_view text);

} // namespace tervale
