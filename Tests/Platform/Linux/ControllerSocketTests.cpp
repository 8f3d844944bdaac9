#include "Platform/Linux/ControllerSocket.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>
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

TEST(ControllerSocket, MakesAFolderThatOthersCannotEnter) {
    const TemporaryFolder folder;
    ASSERT_TRUE(controllerSocket::makePrivateFolder(folder.path / "own"));
    struct stat status {};
    ASSERT_EQ(::stat((folder.path / "own").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    EXPECT_TRUE(controllerSocket::makePrivateFolder(folder.path / "own"));
}

TEST(ControllerSocket, TrustsNoFolderThatOthersCanWriteTo) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkdir((folder.path / "open").c_str(), 0700), 0);
    ASSERT_EQ(::chmod((folder.path / "open").c_str(), 0770), 0);
    EXPECT_FALSE(controllerSocket::makePrivateFolder(folder.path / "open"));
    std::filesystem::create_symlink(folder.path, folder.path / "link");
    EXPECT_FALSE(controllerSocket::isPrivateFolder(folder.path / "link"));
    EXPECT_FALSE(controllerSocket::isPrivateFolder(folder.path / "absent"));
    EXPECT_FALSE(controllerSocket::makePrivateFolder(folder.path / "absent" / "below"));
}

TEST(ControllerSocket, HasNoAddressForAPathThatIsTooLong) {
    EXPECT_TRUE(controllerSocket::address("/" + std::string(106, 'x')));
    EXPECT_FALSE(controllerSocket::address("/" + std::string(107, 'x')));
    EXPECT_FALSE(controllerSocket::address(""));
}
