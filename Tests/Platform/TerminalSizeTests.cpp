#include "Platform/TerminalSize.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

using namespace tervale;

TEST(TerminalSize, IsNoneForWhatIsNoTerminal) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    EXPECT_EQ(terminalColumns(ends[1]), std::nullopt);
    for (const int end : ends)
        ::close(end);
    EXPECT_EQ(terminalColumns(-1), std::nullopt);
}

TEST(TerminalSize, IsWhatTheTerminalTells) {
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0)
        GTEST_SKIP() << "there are no terminals here";
    winsize size{};
    EXPECT_EQ(terminalColumns(terminal), 80) << "one that does not tell";
    size.ws_col = 123;
    size.ws_row = 40;
    ASSERT_EQ(::ioctl(terminal, TIOCSWINSZ, &size), 0);
    EXPECT_EQ(terminalColumns(terminal), 123);
    ::close(terminal);
}
