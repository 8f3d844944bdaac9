#include "Platform/FileDescriptor.h"
#include "Platform/ServiceManager.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace tervale;

namespace {

/// A service manager that listens on a socket of this name.
class Manager {
  public:
    explicit Manager(const std::string& name) : socket(::socket(AF_UNIX, SOCK_DGRAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, name.data(), name.size());
        if (name.front() == '@')
            address.sun_path[0] = '\0';
        const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
        EXPECT_EQ(::bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), length), 0);
        ::setenv("NOTIFY_SOCKET", name.c_str(), 1);
    }
    std::string heard() const {
        char text[100];
        const ssize_t length = ::recv(socket.number(), text, sizeof text, MSG_DONTWAIT);
        return length < 0 ? "" : std::string(text, static_cast<std::size_t>(length));
    }

  private:
    FileDescriptor socket;
};

std::ptrdiff_t openFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                         std::filesystem::directory_iterator());
}

} // namespace

TEST(ServiceManager, IsToldThroughItsSocket) {
    const TemporaryFolder folder;
    const Manager manager(folder.path / "notify");
    tellServiceManager("READY=1");
    EXPECT_EQ(manager.heard(), "READY=1");
}

TEST(ServiceManager, IsToldThroughASocketWithoutAFile) {
    const Manager manager("@tervale-test-" + std::to_string(::getpid()));
    tellServiceManager("WATCHDOG=1");
    EXPECT_EQ(manager.heard(), "WATCHDOG=1");
}

TEST(ServiceManager, NeedNotBeThere) {
    const TemporaryFolder folder;
    const std::ptrdiff_t before = openFiles();
    ::unsetenv("NOTIFY_SOCKET");
    tellServiceManager("READY=1");
    for (const std::string& name : {std::string(), std::string("/absent"), folder.path.string(),
                                    "/" + std::string(1000, 'x')}) {
        ::setenv("NOTIFY_SOCKET", name.c_str(), 1);
        tellServiceManager("READY=1");
        EXPECT_EQ(openFiles(), before) << name;
        EXPECT_TRUE(std::filesystem::is_empty(folder.path));
    }
}

TEST(ServiceManager, IsNotTheOneWhoseSocketsNameIsRelative) {
    const TemporaryFolder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path);
    const Manager manager("relative");
    tellServiceManager("READY=1");
    EXPECT_EQ(manager.heard(), "");
    std::filesystem::current_path(before);
}

TEST(ServiceManager, NeedNotListen) {
    const TemporaryFolder folder;
    const Manager manager(folder.path / "notify");
    // More than its socket holds: whoever waited would wait for ever.
    constexpr int many = 10'000;
    for (int number = 0; number < many; ++number)
        tellServiceManager("READY=1");
    int heard = 0;
    while (manager.heard() == "READY=1")
        ++heard;
    EXPECT_GE(heard, 1);
    EXPECT_LT(heard, many);
}

TEST(ServiceManager, KeepsTheJournalIfStandardErrorIsTheFileThatItNames) {
    struct stat status {};
    ASSERT_EQ(::fstat(STDERR_FILENO, &status), 0);
    const std::string file = std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
    ::unsetenv("JOURNAL_STREAM");
    EXPECT_FALSE(standardErrorIsJournal());
    ::setenv("JOURNAL_STREAM", file.c_str(), 1);
    EXPECT_TRUE(standardErrorIsJournal());
    ::setenv("JOURNAL_STREAM", (file + "1").c_str(), 1);
    EXPECT_FALSE(standardErrorIsJournal());
}
