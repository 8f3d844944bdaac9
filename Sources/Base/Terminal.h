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

/// A line that tells what went wrong: "PROGRAM: ", the line as far as it is printable, a line end.
std::string complaint(std::string_view program, std::string_view line);

/// How a program ends.
namespace exitStatus {

inline constexpr int done = 0;
inline constexpr int failure = 1;
inline constexpr int wrongUsage = 2;

} // namespace exitStatus

/// The terminal of one program, whose name begins each of its complaints.
class Terminal {
  public:
    explicit Terminal(std::string programName, std::FILE* outputStream = stdout,
                      std::FILE* errorStream = stderr);

    /// Writes the text as it is. The exit status: `done`, or `failure` and a complaint if the
    /// output did not take all of it.
    [[nodiscard]] int print(std::string_view text) const;
    /// Complains, and gives back the exit status that this means.
    [[nodiscard]] int complain(std::string_view line, int status) const;

  private:
    std::string program;
    std::FILE* output;
    std::FILE* errors;
};

} // namespace tervale
