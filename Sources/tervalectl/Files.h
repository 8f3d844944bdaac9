#pragma once

#include "JSON/JSONText.h"
#include "Profiles/Profile.h"
#include "tervalectl/Context.h"

#include <cstddef>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tervale {

/// Files that are named on the command line; "-" is standard input or output. What cannot be read
/// or written, and texts and lines that are longer than `largest`, throw `Failure`.
namespace files {

std::string read(const std::string& path, Context& context);
/// In one step: a file that is there keeps its content until the new one is complete.
void write(const std::string& path, std::string_view text, Context& context);

/// The profiles in a file that `profiles export` wrote, whatever problems they have. Throws
/// `Failure` also for a text that is no list of profiles.
std::vector<Profile> readProfiles(const std::string& path, Context& context);

/// The next line, without what ends it; nothing at the end.
std::optional<std::string> readLine(std::istream& in);

/// Throws for a file that cannot be opened, or is none.
void requireReadable(const std::string& path);

/// More than anything worth reading, in bytes.
inline constexpr std::size_t largest = maximumJSONSize;

/// What people call the file.
std::string nameOf(const std::string& path);

} // namespace files

} // namespace tervale
