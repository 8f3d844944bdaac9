#include "Platform/FileLock.h"
#include "Platform/GuardLock.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

using namespace tervale;

namespace {

class GuardLockTest : public testing::Test {
  protected:
    bool isHeldBy(std::int64_t process) const { return guardLock::isHeldBy(process, path); }
    std::optional<FileLock> take() const {
        return FileLock::take(path, std::chrono::milliseconds(0));
    }
    /// The number of a process that has ended.
    static pid_t gone() {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(0);
        EXPECT_EQ(::waitpid(child, nullptr, 0), child);
        return child;
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder.path / "tervale" / "guard.lock";
};

} // namespace

TEST_F(GuardLockTest, LiesInTheRuntimeFolder) {
    ::setenv("XDG_RUNTIME_DIR", "/run/user/7", 1);
    EXPECT_EQ(guardLock::defaultPath(), "/run/user/7/tervale/guard.lock");
}

TEST_F(GuardLockTest, IsHeldByAProcessThatIsThereWhileItIsLocked) {
    EXPECT_FALSE(isHeldBy(::getpid()));
    {
        const auto lock = take();
        ASSERT_TRUE(lock);
        EXPECT_TRUE(isHeldBy(::getpid()));
    }
    EXPECT_FALSE(isHeldBy(::getpid()));
}

TEST_F(GuardLockTest, IsNotHeldByAProcessThatIsGone) {
    const auto lock = take();
    EXPECT_FALSE(isHeldBy(gone()));
}

TEST_F(GuardLockTest, IsNotHeldByNumbersThatStandForSeveralProcesses) {
    const auto lock = take();
    for (const std::int64_t number : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 32U})
        EXPECT_FALSE(isHeldBy(number)) << number;
}
