#include "TervaleWindow/Shell/StartHint.h"

#include <gtest/gtest.h>

using namespace tervale;

TEST(StartHint, NamesTheCommandsThatStartWhatIsMissing) {
    const std::string both = startHint(Presence::missing, Presence::missing).value();
    for (const char* command : {"tervale-simulator", "tervale-agent", "tervale-window --simulate"})
        EXPECT_NE(both.find(command), std::string::npos) << command;
    const std::string controller = startHint(Presence::missing, Presence::there).value();
    EXPECT_NE(controller.find("tervale-simulator"), std::string::npos);
    EXPECT_EQ(controller.find("tervale-agent"), std::string::npos);
    const std::string agent = startHint(Presence::there, Presence::missing).value();
    EXPECT_NE(agent.find("tervale-agent"), std::string::npos);
    EXPECT_EQ(agent.find("tervale-simulator"), std::string::npos);
}

TEST(StartHint, IsOneLine) {
    for (const Presence controller : {Presence::missing, Presence::there}) {
        const auto hint = startHint(controller, Presence::missing);
        ASSERT_TRUE(hint);
        EXPECT_EQ(hint->find('\n'), std::string::npos);
    }
}

TEST(StartHint, IsNothingWhereAllIsThere) {
    EXPECT_EQ(startHint(Presence::there, Presence::there), std::nullopt);
}
