#include "Platform/Linux/ControllerSocket.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <unistd.h>

using namespace tervale;

// Each test is a process of its own, so that it may change its environment.

TEST(ControllerSocket, LiesInTheUsersRuntimeFolder) {
    ::setenv("XDG_RUNTIME_DIR", "/run/user/7", 1);
    EXPECT_EQ(controllerSocket::defaultPath(), "/run/user/7/tervale/controller.socket");
}

TEST(ControllerSocket, LiesAmongTheTemporaryFilesWithoutARuntimeFolder) {
    const std::string own = "/tervale-" + std::to_string(::geteuid()) + "/controller.socket";
    ::unsetenv("TMPDIR");
    ::unsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(controllerSocket::defaultPath(), "/tmp" + own);
    ::setenv("XDG_RUNTIME_DIR", "run", 1);
    EXPECT_EQ(controllerSocket::defaultPath(), "/tmp" + own);
    ::setenv("TMPDIR", "/var/tmp", 1);
    EXPECT_EQ(controllerSocket::defaultPath(), "/var/tmp" + own);
}

TEST(ControllerSocket, HasNoAddressForAPathThatIsTooLong) {
    EXPECT_TRUE(controllerSocket::address("/" + std::string(106, 'x')));
    EXPECT_FALSE(controllerSocket::address("/" + std::string(107, 'x')));
    EXPECT_FALSE(controllerSocket::address(""));
}
