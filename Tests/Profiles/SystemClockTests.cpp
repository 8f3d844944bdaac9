#include "Profiles/Clock.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <optional>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tervale;

namespace {

/// The steady time of a process for which the machine has slept so long, in whole seconds more;
/// nothing where the system lets nobody pretend that. A child of its child, since a process keeps
/// the clocks that it began with.
std::optional<double> steadyTimeAfterASleepOf(int seconds) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        return std::nullopt;
    const pid_t child = ::fork();
    if (child == 0) {
        bool ready = ::unshare(CLONE_NEWUSER | CLONE_NEWTIME) == 0;
        {
            std::ofstream offsets("/proc/self/timens_offsets");
            offsets << "boottime " << seconds << " 0\n";
            offsets.close();
            ready = ready && !offsets.fail();
        }
        if (ready && ::fork() == 0) {
            const double time = SystemClock().steady();
            ::_exit(::write(ends[1], &time, sizeof time) == sizeof time ? 0 : 1);
        }
        ::_exit(0);
    }
    ::close(ends[1]);
    double time = 0;
    const bool told = ::read(ends[0], &time, sizeof time) == sizeof time;
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return told ? std::optional(time) : std::nullopt;
}

} // namespace

TEST(SystemClock, CountsTheSleepOfTheMachine) {
    constexpr int slept = 100'000;
    const double before = SystemClock().steady();
    const auto after = steadyTimeAfterASleepOf(slept);
    if (!after)
        GTEST_SKIP() << "no process may have a clock of its own here";
    EXPECT_GE(*after, before + slept);
}
