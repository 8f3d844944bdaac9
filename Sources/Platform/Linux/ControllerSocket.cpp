#include "Platform/Linux/ControllerSocket.h"

#include "Platform/RuntimeFolder.h"

#include <cstring>
#include <sys/socket.h>

namespace tervale::controllerSocket {

std::filesystem::path defaultPath() {
    return runtimeFolder() / "controller.socket";
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
