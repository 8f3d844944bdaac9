#include "Platform/RuntimeFolder.h"

#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace tervale {

std::filesystem::path runtimeFolder() {
    const char* runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
    if (runtimeFolder && *runtimeFolder == '/')
        return std::filesystem::path(runtimeFolder) / "tervale";
    const char* temporaryFolder = std::getenv("TMPDIR");
    const bool given = temporaryFolder && *temporaryFolder == '/';
    return std::filesystem::path(given ? temporaryFolder : "/tmp") /
           ("tervale-" + std::to_string(::geteuid()));
}

bool makePrivateFolder(const std::filesystem::path& folder) {
    // That it cannot be created, because it is there or for another reason, shows in what is there.
    ::mkdir(folder.c_str(), S_IRWXU);
    return isPrivateFolder(folder);
}

bool isPrivateFolder(const std::filesystem::path& folder) {
    struct stat status {};
    return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

} // namespace tervale
