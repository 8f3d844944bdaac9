#pragma once

#include "tervalectl/Context.h"

#include <string>
#include <string_view>

namespace tervale {

/// Files that are named on the command line; "-" is standard input or output. What cannot be read
/// or written throws `Failure`.
namespace files {

std::string read(const std::string& path, Context& context);
/// In one step: a file that is there keeps its content until the new one is complete.
void write(const std::string& path, std::string_view text, Context& context);

/// What people call the file.
std::string nameOf(const std::string& path);

} // namespace files

} // namespace tervale
