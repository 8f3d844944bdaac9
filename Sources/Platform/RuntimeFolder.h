#pragma once

#include <filesystem>

namespace tervale {

/// Where the programs of a user's session meet: a folder in $XDG_RUNTIME_DIR, or one of the user's
/// own among the temporary files where that is not set to an absolute path.
std::filesystem::path runtimeFolder();

/// Creates the folder unless it is there. Whether it is the user's own and nobody else can write
/// to it, so that nobody else can have put a file there.
bool makePrivateFolder(const std::filesystem::path& folder);
bool isPrivateFolder(const std::filesystem::path& folder);

} // namespace tervale
