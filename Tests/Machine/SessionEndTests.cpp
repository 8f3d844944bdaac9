#include "Machine/SessionEnd.h"
#include "Support/BreakableCenter.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

namespace tervale {
namespace {

using namespace std::chrono_literals;

class SessionEndTest : public testing::Test {
  protected:
    bool happens(const int& count) {
        const QDeadlineTimer deadline(10000);
        while (count == 0 && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        return count == 1;
    }

    BreakableCenter center;
    int ends = 0;
};

TEST_F(SessionEndTest, IsToldOnceNobodyHasBeenInReachForLong) {
    const SessionEnd end(
        center, [this] { ++ends; }, 1ms);
    center.change(Channel::gone);
    EXPECT_TRUE(happens(ends));
}

TEST_F(SessionEndTest, IsNoneWhereTheOthersAreBackInTime) {
    int later = 0;
    const SessionEnd end(
        center, [this] { ++ends; }, 10ms);
    center.change(Channel::gone);
    center.change(Channel::back);
    QTimer::singleShot(30ms, Qt::PreciseTimer, [&] { ++later; });
    EXPECT_TRUE(happens(later));
    EXPECT_EQ(ends, 0);
}

} // namespace
} // namespace tervale
