#include "JSON/JSON.h"
#include "Support/TemporaryFolder.h"
#include "tervalectl/CommandRunner.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

using namespace tervale;

namespace {

const Profile exported{UUID::random(), "Quiet", kind::Load{{{{30, 0.2}, {80, 0.8}}}}};
const Profile alsoExported{UUID::random(), "Busy", kind::Load{{{{30, 0.2}, {80, 0.8}}}}};

/// No file of this process becomes longer than so many bytes.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(std::size_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit before{};
    void (*handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

class ProfileExport : public testing::Test, protected CommandRunner {
  protected:
    ProfileExport() { agent.state.profiles = {exported}; }

    QString file(const char* name) const { return QString::fromStdString(folder.path / name); }
    std::string content(const char* name) const {
        std::ifstream stream(folder.path / name);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    int filesInFolder() const {
        return static_cast<int>(
            std::distance(std::filesystem::directory_iterator(folder.path), {}));
    }

    TemporaryFolder folder;
    ScriptedAgent agent{center};
};

} // namespace

TEST_F(ProfileExport, KeepsTheFileWhereTheNewOneDoesNotFit) {
    ASSERT_EQ(run({"profiles", "export", file("p.json")}), ExitStatus::done);
    const std::string before = content("p.json");
    agent.state.profiles = {exported, alsoExported};
    {
        const FileSizeLimit limit(before.size());
        EXPECT_EQ(run({"profiles", "export", file("p.json")}), ExitStatus::refused);
    }
    EXPECT_TRUE(errors.starts_with("tervalectl: Cannot write ")) << errors;
    EXPECT_NE(errors.find(std::strerror(EFBIG)), std::string::npos) << errors;
    EXPECT_EQ(content("p.json"), before);
    EXPECT_EQ(filesInFolder(), 1) << "the part that did fit is gone";
}

TEST_F(ProfileExport, ReplacesTheFileThatALinkLeadsTo) {
    std::ofstream(folder.path / "p.json") << "old";
    std::filesystem::create_symlink("p.json", folder.path / "link");
    ASSERT_EQ(run({"profiles", "export", file("link")}), ExitStatus::done);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path / "link"));
    EXPECT_EQ(content("p.json"), encode(agent.state.profiles) + '\n');
}

TEST_F(ProfileExport, WritesIntoAPipe) {
    const std::string path = folder.path / "pipe";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    std::string received;
    std::thread reader([&] {
        std::ifstream pipe(path);
        received.assign(std::istreambuf_iterator<char>(pipe), {});
    });
    EXPECT_EQ(run({"profiles", "export", file("pipe")}), ExitStatus::done) << errors;
    reader.join();
    EXPECT_EQ(received, encode(agent.state.profiles) + '\n');
    EXPECT_TRUE(std::filesystem::is_fifo(path));
}

TEST_F(ProfileExport, WritesIntoADevice) {
    EXPECT_EQ(run({"profiles", "export", "/dev/null"}), ExitStatus::done) << errors;
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "this system has no device that is always full";
    EXPECT_EQ(run({"profiles", "export", "/dev/full"}), ExitStatus::refused);
    EXPECT_EQ(errors,
              std::string("tervalectl: Cannot write /dev/full: ") + std::strerror(ENOSPC) + "\n");
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(ProfileExport, LeavesASocketWhereItIs) {
    const std::string path = folder.path / "socket";
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(run({"profiles", "export", file("socket")}), ExitStatus::refused);
    EXPECT_TRUE(std::filesystem::is_socket(path));
    ::close(socket);
}

TEST_F(ProfileExport, TakesTheOtherNameOfStandardOutput) {
    ASSERT_EQ(run({"profiles", "export", "/dev/stdout"}), ExitStatus::done);
    EXPECT_EQ(output, encode(agent.state.profiles) + '\n');
}

TEST_F(ProfileExport, WritesIntoAFileThatIsOpen) {
    const std::string path = folder.path / "p.json";
    const int open = ::open(path.c_str(), O_WRONLY | O_CREAT, 0600);
    const QString name = QStringLiteral("/dev/fd/%1").arg(open);
    EXPECT_EQ(run({"profiles", "export", name}), ExitStatus::done) << errors;
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(::fstat(open, &before), 0);
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino) << "whoever holds it open has the text";
    EXPECT_EQ(content("p.json"), encode(agent.state.profiles) + '\n');
    ::close(open);
}

TEST_F(ProfileExport, ReplacesAFileThatIsThere) {
    ASSERT_EQ(run({"profiles", "export", file("p.json")}), ExitStatus::done);
    agent.state.profiles.clear();
    ASSERT_EQ(run({"profiles", "export", file("p.json")}), ExitStatus::done);
    EXPECT_EQ(content("p.json"), "[]\n");
}
