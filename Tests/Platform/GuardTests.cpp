#include "Platform/FileDescriptor.h"
#include "Platform/FileLock.h"
#include "Platform/GuardDuty.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <functional>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

using namespace tervale;
using namespace std::chrono_literals;

namespace {

/// A guard of this process, or of one that a test starts in its place. It notes each hand-back in
/// a pipe.
class GuardTest : public testing::Test {
  protected:
    GuardTest() {
        std::array<int, 2> notes{};
        EXPECT_EQ(::pipe(notes.data()), 0);
        reading = FileDescriptor(notes[0]);
        writing = FileDescriptor(notes[1]);
    }
    ~GuardTest() override {
        agent.close();
        if (guard > 0)
            ::waitpid(guard, nullptr, 0);
    }

    void start(int failures = 0, std::function<bool()> isCool = nullptr) {
        std::array<int, 2> ends{};
        ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
        guard = ::fork();
        if (guard == 0) {
            held.reset();
            ::dup2(ends[1], STDIN_FILENO);
            ::close(ends[0]);
            ::close(ends[1]);
            ::_exit(static_cast<int>(stand(failures, std::move(isCool))));
        }
        agent = FileDescriptor(ends[0]);
        ::close(ends[1]);
    }
    GuardDuty::End stand(int failures, std::function<bool()> isCool) const {
        return GuardDuty{.lock = lock,
                         .hangLimit = hangLimit,
                         .handBack =
                             [this, failures]() mutable {
                                 const bool done = failures-- <= 0;
                                 return ::write(writing.number(), "h", 1) == 1 && done;
                             },
                         .isCool = std::move(isCool),
                         .eagerTime = 100ms,
                         .pause = 20ms}
            .stand();
    }
    /// Whether the guard says something within so long.
    bool hears(std::chrono::milliseconds wait) const { return arrives(agent.number(), wait); }
    bool handsBack(std::chrono::milliseconds wait) const { return arrives(reading.number(), wait); }
    static bool arrives(int file, std::chrono::milliseconds wait) {
        pollfd waiting{file, POLLIN, 0};
        char note = 0;
        return ::poll(&waiting, 1, static_cast<int>(wait.count())) == 1 &&
               ::read(file, &note, 1) == 1;
    }
    void giveSign() const { EXPECT_EQ(::send(agent.number(), "a", 1, MSG_NOSIGNAL), 1); }
    GuardDuty::End ends() {
        int status = 0;
        EXPECT_EQ(::waitpid(guard, &status, 0), guard);
        guard = 0;
        EXPECT_TRUE(WIFEXITED(status));
        return static_cast<GuardDuty::End>(WEXITSTATUS(status));
    }

    /// A guard that waited for longer would end the test. On a busy machine that may be slow, too.
    std::chrono::milliseconds hangLimit = 20s;
    TemporaryFolder folder;
    std::filesystem::path lock = folder.path / "tervale" / "guard.lock";
    /// By a guard before the one that is started.
    std::optional<FileLock> held;
    FileDescriptor reading;
    FileDescriptor writing;
    FileDescriptor agent;
    pid_t guard = 0;
};

} // namespace

TEST_F(GuardTest, ReportsForDutyAndAnswersEverySignOfLife) {
    hangLimit = 3s;
    start();
    ASSERT_TRUE(hears(20s));
    // Longer in all than the limit.
    for (int i = 0; i < 6; ++i) {
        std::this_thread::sleep_for(600ms);
        giveSign();
        EXPECT_TRUE(hears(20s));
    }
    EXPECT_FALSE(handsBack(0ms));
}

TEST_F(GuardTest, HandsBackAtOnceWhenTheOtherEndIsClosed) {
    start();
    ASSERT_TRUE(hears(20s));
    agent.close();
    EXPECT_TRUE(handsBack(10s));
    EXPECT_EQ(ends(), GuardDuty::End::handedBack);
}

TEST_F(GuardTest, TriesAgainUntilTheFansAreAutomatic) {
    start(3);
    ASSERT_TRUE(hears(20s));
    agent.close();
    EXPECT_EQ(ends(), GuardDuty::End::handedBack);
    for (int attempt = 0; attempt < 4; ++attempt)
        EXPECT_TRUE(handsBack(0ms));
    EXPECT_FALSE(handsBack(0ms));
}

TEST_F(GuardTest, GoesOnTryingLongAfterItsEagerTime) {
    start(20);
    ASSERT_TRUE(hears(20s));
    agent.close();
    EXPECT_EQ(ends(), GuardDuty::End::handedBack);
}

TEST_F(GuardTest, GivesUpOnceItsPlaceInTheSessionIsGone) {
    start(1'000'000);
    ASSERT_TRUE(hears(20s));
    agent.close();
    ASSERT_TRUE(handsBack(20s));
    std::filesystem::remove(lock);
    EXPECT_EQ(ends(), GuardDuty::End::notHandedBack);
}

TEST_F(GuardTest, HandsBackAtOnceForASilentAgentOnAHotMachineAndLeavesItAlive) {
    hangLimit = 10s;
    const auto began = std::chrono::steady_clock::now();
    start(0, [] { return false; });
    ASSERT_TRUE(hears(20s));
    EXPECT_TRUE(handsBack(8s));
    EXPECT_GE(std::chrono::steady_clock::now() - began, 2s) << "two waits are no silence";
    giveSign();
    EXPECT_TRUE(hears(20s)) << "the guard stays on duty";
}

TEST_F(GuardTest, IsPatientWithASilentAgentOnACoolMachine) {
    hangLimit = 4s;
    start(0, [] { return true; });
    ASSERT_TRUE(hears(20s));
    EXPECT_FALSE(handsBack(1200ms));
    giveSign();
    EXPECT_TRUE(hears(20s));
}

TEST_F(GuardTest, OutlivesTheSignalsThatEndItsAgent) {
    start();
    ASSERT_TRUE(hears(20s));
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
        ASSERT_EQ(::kill(guard, signal), 0);
    giveSign();
    EXPECT_TRUE(hears(20s));
}

TEST_F(GuardTest, EndsAnAgentThatGivesNoSignOfLifeAndHandsBack) {
    hangLimit = 400ms;
    // The agent that hangs is a child, whose guard writes to the same pipe.
    const pid_t hanging = ::fork();
    if (hanging == 0) {
        start();
        for (;;)
            ::pause();
    }
    const auto began = std::chrono::steady_clock::now();
    int status = 0;
    ASSERT_EQ(::waitpid(hanging, &status, 0), hanging);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    EXPECT_GE(std::chrono::steady_clock::now() - began, hangLimit);
    EXPECT_TRUE(handsBack(10s));
    EXPECT_TRUE(handsBack(10s)) << "once more when it is really gone";
}

TEST_F(GuardTest, IsPatientWithAnAgentWhileItIsHaltedItself) {
    hangLimit = 3s;
    start();
    ASSERT_TRUE(hears(20s));
    ASSERT_EQ(::kill(guard, SIGSTOP), 0);
    std::this_thread::sleep_for(4s);
    ASSERT_EQ(::kill(guard, SIGCONT), 0);
    std::this_thread::sleep_for(150ms);
    giveSign();
    EXPECT_TRUE(hears(20s));
    EXPECT_FALSE(handsBack(0ms));
}

TEST_F(GuardTest, ReportsOnlyOnceTheGuardBeforeItIsDone) {
    held = FileLock::take(lock, 0ms);
    ASSERT_TRUE(held);
    start();
    EXPECT_FALSE(hears(100ms));
    held.reset();
    EXPECT_TRUE(hears(20s));
}

TEST_F(GuardTest, HandsBackForAnAgentThatIsGoneBeforeItsReport) {
    held = FileLock::take(lock, 0ms);
    ASSERT_TRUE(held);
    start();
    agent.close();
    EXPECT_FALSE(handsBack(100ms));
    held.reset();
    EXPECT_TRUE(handsBack(20s));
    EXPECT_EQ(ends(), GuardDuty::End::handedBack);
}

TEST_F(GuardTest, RefusesWhenTheGuardBeforeItIsNeverDone) {
    held = FileLock::take(lock, 0ms);
    start();
    EXPECT_EQ(ends(), GuardDuty::End::refused);
    EXPECT_FALSE(handsBack(0ms));
}
