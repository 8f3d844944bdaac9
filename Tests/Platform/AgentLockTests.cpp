#include "Platform/AgentLock.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tervale;

namespace {

class AgentLockTest : public testing::Test {
  protected:
    /// Why there is no second one; empty if there is.
    std::string refusal() const {
        try {
            const AgentLock second(path);
            return "";
        } catch (const AgentLock::Refused& refused) {
            return refused.what();
        }
    }
    /// Another process that holds the lock, until it is killed.
    pid_t startHolder() const {
        int ready[2];
        EXPECT_EQ(::pipe(ready), 0);
        const pid_t holder = ::fork();
        if (holder == 0) {
            const AgentLock lock(path);
            if (::write(ready[1], "x", 1) == 1)
                ::pause();
            ::_exit(1);
        }
        char report = 0;
        EXPECT_EQ(::read(ready[0], &report, 1), 1);
        ::close(ready[0]);
        ::close(ready[1]);
        return holder;
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder.path / "tervale" / "agent.lock";
};

} // namespace

TEST_F(AgentLockTest, LiesInTheRuntimeFolder) {
    ::setenv("XDG_RUNTIME_DIR", "/run/user/7", 1);
    EXPECT_EQ(AgentLock::defaultPath(), "/run/user/7/tervale/agent.lock");
}

TEST_F(AgentLockTest, LetsOneAgentRunAtATime) {
    EXPECT_EQ(AgentLock::holder(path), std::nullopt);
    {
        const AgentLock lock(path);
        EXPECT_EQ(refusal(), "An agent runs already: process " + std::to_string(::getpid()) + ".");
    }
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(AgentLock::holder(path), std::nullopt);
}

TEST_F(AgentLockTest, NamesNoProcessBeforeTheFileSaysOne) {
    const auto justTaken = FileLock::take(path, AgentLock::defaultPatience);
    ASSERT_TRUE(justTaken);
    EXPECT_EQ(AgentLock::holder(path), AgentLock::Holder{});
    EXPECT_EQ(refusal(), "An agent runs already.");
}

TEST_F(AgentLockTest, TellsTheProcessItsStartAndItsGuard) {
    AgentLock lock(path);
    auto holder = AgentLock::holder(path);
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->process, ::getpid());
    EXPECT_TRUE(std::regex_match(holder->started,
                                 std::regex("20[0-9]{2}-[01][0-9]-[0-3][0-9]T[0-2][0-9]:[0-5][0-9]:"
                                            "[0-5][0-9]Z")))
        << holder->started;
    EXPECT_EQ(holder->guard, std::nullopt);
    lock.setGuard(1'000'000);
    EXPECT_EQ(AgentLock::holder(path)->guard, 1'000'000);
    lock.setGuard(7);
    EXPECT_EQ(AgentLock::holder(path)->guard, 7);
    lock.setGuard(std::nullopt);
    EXPECT_EQ(AgentLock::holder(path), holder);
}

TEST_F(AgentLockTest, IsFreedByAKill) {
    const pid_t holder = startHolder();
    EXPECT_EQ(refusal(), "An agent runs already: process " + std::to_string(holder) + ".");
    ASSERT_EQ(::kill(holder, SIGKILL), 0);
    ASSERT_EQ(::waitpid(holder, nullptr, 0), holder);
    EXPECT_EQ(AgentLock::holder(path), std::nullopt);
    EXPECT_EQ(refusal(), "");
}

TEST_F(AgentLockTest, IsNotHeldByAProgramThatTheAgentStarts) {
    auto lock = std::make_optional<AgentLock>(path);
    const pid_t child = ::fork();
    if (child == 0) {
        ::execlp("sleep", "sleep", "600", nullptr);
        ::_exit(1);
    }
    // The lock is the other process's too until it has become the other program.
    lock.reset();
    EXPECT_NO_THROW(AgentLock(path, std::chrono::seconds(60)));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

TEST_F(AgentLockTest, TakesTheLockAnewWhenItsFileIsRemoved) {
    AgentLock lock(path);
    const auto before = AgentLock::holder(path);
    lock.keep();
    std::filesystem::remove(path);
    EXPECT_EQ(AgentLock::holder(path), std::nullopt);
    lock.keep();
    EXPECT_EQ(AgentLock::holder(path), before);
    std::filesystem::remove_all(path.parent_path());
    lock.keep();
    EXPECT_EQ(AgentLock::holder(path), before) << "the folder is made anew as well";
    EXPECT_EQ(refusal(), "An agent runs already: process " + std::to_string(::getpid()) + ".");
}

TEST_F(AgentLockTest, GivesWayToAnotherAgentThatCameWhileTheFileWasGone) {
    AgentLock lock(path);
    std::filesystem::remove(path);
    const pid_t other = startHolder();
    try {
        lock.keep();
        ADD_FAILURE() << "two agents hold the lock";
    } catch (const AgentLock::Refused& refused) {
        EXPECT_EQ(refused.what(), "An agent runs already: process " + std::to_string(other) + ".");
    }
    ASSERT_EQ(::kill(other, SIGKILL), 0);
    ASSERT_EQ(::waitpid(other, nullptr, 0), other);
    lock.keep();
    EXPECT_EQ(AgentLock::holder(path)->process, ::getpid());
}

TEST_F(AgentLockTest, RefusesAFolderThatOthersCanWriteTo) {
    std::filesystem::create_directory(path.parent_path());
    ASSERT_EQ(::chmod(path.parent_path().c_str(), 0777), 0);
    EXPECT_EQ(refusal(), "Cannot lock '" + path.string() +
                             "': its folder is not this user's alone to write to.");
}

TEST_F(AgentLockTest, TakesAFileThatSaysWhateverItLikes) {
    std::filesystem::create_directory(path.parent_path());
    ASSERT_EQ(::chmod(path.parent_path().c_str(), 0700), 0);
    std::ofstream(path) << std::string(1000, 'x') << "\npid=-3\nguard=abc\n";
    EXPECT_EQ(AgentLock::holder(path), std::nullopt);
    const AgentLock lock(path);
    EXPECT_EQ(AgentLock::holder(path)->process, ::getpid());
    EXPECT_EQ(AgentLock::holder(path)->guard, std::nullopt);
    EXPECT_LT(std::filesystem::file_size(path), 100U);
}
