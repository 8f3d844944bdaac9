#include "Platform/macOS/Foundation/FoundationSession.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

class TolerantTimerTest : public testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(program->ends()); }

    FoundationSession session;
    std::unique_ptr<AdapterProgram> program = session.start();
};

} // namespace

TEST_F(TolerantTimerTest, IsGivenItsTolerance) {
    EXPECT_EQ(program->does("start-timer 1000 200"), "late by up to 200\n");
}

TEST_F(TolerantTimerTest, CallsAgainAndAgainOnTheMainThread) {
    ASSERT_TRUE(program->does("start-timer 20 4"));
    EXPECT_TRUE(eventually([this] { return program->received("tick").size() >= 3; }));
    for (const QByteArray& tick : program->received("tick"))
        EXPECT_EQ(tick, "nothing");
}

TEST_F(TolerantTimerTest, CallsNobodyBeforeItsTime) {
    ASSERT_TRUE(program->does("start-timer 3600000 0"));
    ASSERT_TRUE(program->does("count-owners"));
    EXPECT_TRUE(program->received("tick").isEmpty());
}

TEST_F(TolerantTimerTest, LetsGoOfItsHandlerWhenItIsLetGo) {
    const auto before = program->does("count-owners");
    ASSERT_TRUE(program->does("start-timer 20 4"));
    EXPECT_NE(program->does("count-owners"), before);
    ASSERT_TRUE(program->does("stop-timer"));
    EXPECT_EQ(program->does("count-owners"), before);
    const auto ticks = program->received("tick").size();
    // Commands are waited for some milliseconds each, during which it would call.
    for (int wait = 0; wait < 20; ++wait)
        ASSERT_TRUE(program->does("count-owners"));
    EXPECT_EQ(program->received("tick").size(), ticks);
}
