#pragma once

#include "Base/Precondition.h"
#include "Platform/FileDescriptor.h"
#include "Platform/Linux/ControllerSocket.h"

#include <cstdlib>
#include <filesystem>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace tervale {

/// A place for a controller's socket in a folder that only this user can enter; gone with the
/// object.
class PrivateSocket {
  public:
    PrivateSocket() {
        std::string pattern = std::filesystem::temp_directory_path() / "tervale-fuzz.XXXXXX";
        folder = ::mkdtemp(pattern.data());
    }
    ~PrivateSocket() { std::filesystem::remove_all(folder); }
    PrivateSocket(const PrivateSocket&) = delete;
    PrivateSocket& operator=(const PrivateSocket&) = delete;

    std::filesystem::path path() const { return folder / "socket"; }
    FileDescriptor connected() const {
        FileDescriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
        const auto address = controllerSocket::address(path());
        precondition(socket.number() >= 0 &&
                         ::connect(socket.number(), reinterpret_cast<const sockaddr*>(&*address),
                                   sizeof *address) == 0,
                     "nobody serves");
        return socket;
    }
    FileDescriptor listening() const {
        FileDescriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
        const auto address = controllerSocket::address(path());
        std::filesystem::remove(path());
        precondition(socket.number() >= 0 &&
                         ::bind(socket.number(), reinterpret_cast<const sockaddr*>(&*address),
                                sizeof *address) == 0 &&
                         ::listen(socket.number(), 16) == 0,
                     "the fuzzer cannot serve");
        return socket;
    }

  private:
    std::filesystem::path folder;
};

} // namespace tervale
