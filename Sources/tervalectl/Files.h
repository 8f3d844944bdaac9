#pragma once

#include "JSON/JSONText.h"
#include "Profiles/Profile.h"
#include "tervalectl/Context.h"

#include <cstddef>
#include <fstream>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tervale {

/// Files that are named on the command line; "-" is standard input or output. What cannot be read
/// or written, and texts and lines that are longer than `largest`, throw `Failure`.
namespace files {

/// The whole text.
std::string read(const std::string& path, Context& context);

/// Opens the file for reading, once, so that a pipe serves too. `file` keeps it open unless the
/// stream is standard input.
std::istream& open(const std::string& path, std::ifstream& file, Context& context);
/// The next line, without its line break; nothing at the end.
std::optional<std::string> readLine(std::istream& in);

/// Replaces a regular file in one step: it keeps its old text until the disk has the new one, and
/// also if that fails. Anything else, such as a pipe or a device, is opened and written to.
void write(const std::string& path, std::string_view text, Context& context);
/// Throws what `write` would, as far as that can be told beforehand; the file stays as it is.
void requireWritable(const std::string& path);

/// The profiles in a file that `profiles export` wrote, whatever problems they have. Throws
/// `Failure` also for a text that is no list of profiles.
std::vector<Profile> readProfiles(const std::string& path, Context& context);

/// More than anything worth reading, in bytes.
inline constexpr std::size_t largest = maximumJSONSize;

/// The path for people.
std::string nameOf(const std::string& path);

} // namespace files

} // namespace tervale
