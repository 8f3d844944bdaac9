#include "tervale-agent/AgentLog.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>

using namespace tervale;
using Level = AgentLog::Level;

namespace {

class AgentLogTest : public testing::Test {
  protected:
    AgentLog log(Level most, AgentLog::Form form = AgentLog::Form::terminal) const {
        return {file.get(), most, form};
    }
    std::string text() const {
        EXPECT_EQ(std::fseek(file.get(), 0, SEEK_SET), 0);
        std::string all;
        for (int character = std::fgetc(file.get()); character != EOF;
             character = std::fgetc(file.get()))
            all += static_cast<char>(character);
        return all;
    }

    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::tmpfile(), &std::fclose};
};

} // namespace

TEST_F(AgentLogTest, WritesALineAnEventForATerminal) {
    AgentLog lines = log(Level::debug);
    lines.write(Level::info, "Begun.", 0);
    lines.write(Level::warning, "Odd.", 1);
    lines.write(Level::error, "Failed: a\x1B[2J\nb", 2);
    EXPECT_EQ(text(), "tervale-agent: Begun.\ntervale-agent: warning: Odd.\n"
                      "tervale-agent: error: Failed: a [2J b\n");
}

TEST_F(AgentLogTest, BeginsEachLineWithItsLevelForTheJournal) {
    AgentLog lines = log(Level::debug, AgentLog::Form::journal);
    for (const Level level : {Level::error, Level::warning, Level::info, Level::debug})
        lines.write(level, "x", 0);
    EXPECT_EQ(text(), "<3>x\n<4>x\n<6>x\n<7>x\n");
}

TEST_F(AgentLogTest, LeavesOutWhatNobodyAskedFor) {
    AgentLog lines = log(Level::warning);
    lines.write(Level::info, "a", 0);
    lines.write(Level::debug, "b", 0);
    lines.write(Level::warning, "c", 0);
    EXPECT_EQ(text(), "tervale-agent: warning: c\n");
}

TEST_F(AgentLogTest, CountsTheLinesOfAnyoneWhoMakesManyInAShortTime) {
    AgentLog lines = log(Level::info);
    for (int i = 0; i < 1000; ++i)
        lines.write(Level::info, "x", i * 0.001);
    EXPECT_EQ(text().size(), AgentLog::mostLines * std::string("tervale-agent: x\n").size());
    lines.write(Level::info, "y", AgentLog::interval);
    EXPECT_TRUE(text().ends_with(
        "tervale-agent: x\ntervale-agent: warning: 980 lines were left out.\ntervale-agent: y\n"));
}

TEST_F(AgentLogTest, KnowsItsLevelsByName) {
    EXPECT_EQ(AgentLog::levelNamed("warning"), Level::warning);
    EXPECT_EQ(AgentLog::levelNamed("Warning"), std::nullopt);
    EXPECT_EQ(AgentLog::levelNamed(""), std::nullopt);
}
