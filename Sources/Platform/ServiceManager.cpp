#include "Platform/ServiceManager.h"

#include "Platform/FileDescriptor.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace tervale {

void tellServiceManager(const std::string& lines) {
    const char* name = std::getenv("NOTIFY_SOCKET");
    sockaddr_un address{};
    if (!name || (*name != '/' && *name != '@') || std::strlen(name) >= sizeof address.sun_path)
        return;
    const std::string_view path = name;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    // An abstract name begins with a zero, and ends where its length says.
    if (*name == '@')
        address.sun_path[0] = '\0';
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_DGRAM, 0));
    if (socket.number() < 0)
        return;
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
    // A manager that does not listen is its own matter.
    static_cast<void>(::sendto(socket.number(), lines.data(), lines.size(), MSG_DONTWAIT,
                               reinterpret_cast<const sockaddr*>(&address), length));
}

bool standardErrorIsJournal() {
    const char* journal = std::getenv("JOURNAL_STREAM");
    struct stat status {};
    return journal && ::fstat(STDERR_FILENO, &status) == 0 &&
           journal == std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

} // namespace tervale
