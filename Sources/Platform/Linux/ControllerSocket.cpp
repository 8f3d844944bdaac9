#include "Platform/Linux/ControllerSocket.h"

#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tervale::controllerSocket {

namespace {
constexpr const char* fileName = "controller.socket";
}

std::filesystem::path defaultPath() {
    const char* runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
    if (runtimeFolder && *runtimeFolder == '/')
        return std::filesystem::path(runtimeFolder) / "tervale" / fileName;
    const char* temporaryFolder = std::getenv("TMPDIR");
    const bool given = temporaryFolder && *temporaryFolder == '/';
    return std::filesystem::path(given ? temporaryFolder : "/tmp") /
           ("tervale-" + std::to_string(::geteuid())) / fileName;
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

std::optional<sockaddr_un> address(const std::filesystem::path& path) {
    const std::string& name = path.native();
    sockaddr_un address{};
    // An empty name would be an abstract one; the last byte stays zero.
    if (name.empty() || name.size() >= sizeof address.sun_path)
        return std::nullopt;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.data(), name.size());
    return address;
}

} // namespace tervale::controllerSocket
