#pragma once

#include "Platform/FileDescriptor.h"
#include "Platform/Linux/ControllerSocket.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <poll.h>
#include <sys/socket.h>
#include <vector>

namespace tervale {

using Packet = std::vector<std::uint8_t>;

inline FileDescriptor newSocket() {
    return FileDescriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
}

/// A socket of the other side's kind, byte for byte.
class RawSocket {
  public:
    explicit RawSocket(FileDescriptor socket) : socket(std::move(socket)) {}
    static RawSocket connectedTo(const std::filesystem::path& path) {
        FileDescriptor socket = newSocket();
        const auto address = controllerSocket::address(path);
        if (::connect(socket.number(), reinterpret_cast<const sockaddr*>(&*address),
                      sizeof *address) != 0)
            socket.close();
        return RawSocket(std::move(socket));
    }

    explicit operator bool() const { return static_cast<bool>(socket); }
    bool send(const Packet& packet) const {
        return ::send(socket.number(), packet.data(), packet.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
               static_cast<ssize_t>(packet.size());
    }
    /// Nothing there is as good as hung up: see `hasInput`.
    Packet receive() const {
        Packet packet(1000);
        const ssize_t length = ::recv(socket.number(), packet.data(), packet.size(), MSG_DONTWAIT);
        packet.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
        return packet;
    }
    /// A packet, or the other side's hanging up.
    bool hasInput() const {
        pollfd waiting{socket.number(), POLLIN, 0};
        return ::poll(&waiting, 1, 0) > 0;
    }
    void waitForInput() const {
        pollfd waiting{socket.number(), POLLIN, 0};
        ::poll(&waiting, 1, 120'000);
    }

  private:
    FileDescriptor socket;
};

/// A request or reply: its head, and a structure of one repeated byte.
inline Packet packetOf(Packet head, std::uint8_t filling = 0) {
    head.insert(head.end(), 80, filling);
    return head;
}

inline Packet findRequest(const std::string& className) {
    Packet packet = packetOf({1, 0, 0, 0, 0, 0, 0, 0});
    std::copy(className.begin(), className.end(), packet.begin() + 8);
    return packet;
}

} // namespace tervale
