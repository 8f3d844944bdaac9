#include "Platform/Linux/LoginManager.h"
#include "Support/FakeLoginManager.h"
#include "Support/PrivateBus.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

class LoginManagerTest : public testing::Test {
  protected:
    SleepHandlers handlers() {
        return {[this] {
                    delayedBefore = manager.isDelayed();
                    said += "before ";
                },
                [this] { said += "after "; },
                [this](SleepNews news) { said += news == SleepNews::told ? "told " : "untold "; }};
    }

    PrivateBus bus;
    FakeLoginManager manager{bus.connect()};
    bool delayedBefore = false;
    std::string said;
};

} // namespace

TEST_F(LoginManagerTest, HasTheMachineWaitUntilTheFansAreHandedBack) {
    const LoginManager watch(bus.connect(), handlers());
    ASSERT_TRUE(eventually([this] { return manager.delays == 1; }));
    EXPECT_EQ(manager.asked,
              (QStringList{"sleep", "Tervale", "The fans are handed back", "delay"}));
    EXPECT_TRUE(manager.isDelayed());
    emit manager.PrepareForSleep(true);
    ASSERT_TRUE(eventually([this] { return !manager.isDelayed(); }));
    EXPECT_EQ(said, "before ");
    EXPECT_TRUE(delayedBefore);
    emit manager.PrepareForSleep(false);
    ASSERT_TRUE(eventually([this] { return manager.delays == 2; }));
    EXPECT_EQ(said, "before after ");
    EXPECT_TRUE(manager.isDelayed());
}

TEST_F(LoginManagerTest, HearsOfSleepFromOneThatGivesNoDelay) {
    const LoginManager watch(bus.connect(), handlers());
    // Whoever sends the signal as the manager does.
    emit manager.PrepareForSleep(true);
    ASSERT_TRUE(eventually([this] { return said == "before "; }));
}

TEST_F(LoginManagerTest, HoldsNoDelayThatIsGrantedAfterTheSleepHasBegun) {
    const LoginManager watch(bus.connect(), handlers());
    emit manager.PrepareForSleep(true);
    ASSERT_TRUE(eventually([this] { return said == "before " && manager.delays == 1; }));
    EXPECT_TRUE(eventually([this] { return !manager.isDelayed(); }));
}

TEST(LoginManagerThatIsMissing, IsToldOfOnceAndAskedWhenItComes) {
    PrivateBus bus;
    std::string said;
    const LoginManager watch(
        bus.connect(),
        {[&] { said += "before "; }, [&] { said += "after "; },
         [&](SleepNews news) { said += news == SleepNews::told ? "told " : "untold "; }});
    ASSERT_TRUE(eventually([&] { return said == "untold "; }));
    {
        FakeLoginManager manager(bus.connect());
        ASSERT_TRUE(eventually([&] { return said == "untold told "; }));
        EXPECT_TRUE(manager.isDelayed());
        emit manager.PrepareForSleep(true);
        ASSERT_TRUE(eventually([&] { return said == "untold told before "; }));
    }
    ASSERT_TRUE(eventually([&] { return said == "untold told before untold "; }));
    FakeLoginManager manager(bus.connect());
    EXPECT_TRUE(eventually([&] { return manager.isDelayed(); })) << "one that is started anew";
}

TEST_F(LoginManagerTest, LetsTheMachineSleepWhenItGoes) {
    {
        const LoginManager watch(bus.connect(), handlers());
        ASSERT_TRUE(eventually([this] { return manager.delays == 1; }));
        PrivateBus::settle(bus.connect());
    }
    EXPECT_TRUE(eventually([this] { return !manager.isDelayed(); }));
}
