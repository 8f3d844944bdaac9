#pragma once

#include "Platform/FileDescriptor.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace tervale {

/// A socket that takes every connection and answers nobody, as that of a process that is halted.
class SilentSocket {
  public:
    /// In place of whatever lies there.
    explicit SilentSocket(const std::filesystem::path& path)
        : socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        std::filesystem::remove(path);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.string().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(
            ::bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
            0);
        EXPECT_EQ(::listen(socket.number(), 64), 0);
    }

  private:
    FileDescriptor socket;
};

} // namespace tervale
