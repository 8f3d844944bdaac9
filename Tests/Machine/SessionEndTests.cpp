#include "Machine/SessionEnd.h"
#include "Support/BreakableCenter.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

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

    /// Says that the session is over once it is asked often enough.
    SessionEnd::WatchMaker overAtLook(int number) {
        return [this, number](std::function<void()> over) {
            class Watch final : public SessionWatch {
              public:
                Watch(int& looks, int number, std::function<void()> over)
                    : looks(looks),
                      number(number),
                      over(std::move(over)) {}
                void look() override {
                    if (++looks == number)
                        over();
                }

              private:
                int& looks;
                int number;
                std::function<void()> over;
            };
            return std::make_unique<Watch>(looks, number, std::move(over));
        };
    }

    BreakableCenter center;
    int ends = 0;
    int looks = 0;
};

TEST_F(SessionEndTest, IsToldAtOnceWhereTheSystemSaysThatTheSessionIsOver) {
    const SessionEnd end(
        center, [this] { ++ends; }, 1h, overAtLook(1));
    EXPECT_EQ(ends, 0);
    center.change(Channel::gone);
    EXPECT_EQ(ends, 1);
    center.change(Channel::gone);
    EXPECT_EQ(looks, 1) << "once it is over nobody is asked";
}

TEST_F(SessionEndTest, AsksAgainWhileTheOthersAreOutOfReach) {
    const SessionEnd end(
        center, [this] { ++ends; }, 1h, overAtLook(2));
    center.change(Channel::gone);
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(happens(ends));
}

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
