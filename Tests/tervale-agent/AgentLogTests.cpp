#include "tervale-agent/AgentLog.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <unistd.h>

using namespace tervale;
using Level = AgentLog::Level;
using namespace std::chrono_literals;

namespace {

class AgentLogTest : public testing::Test {
  protected:
    AgentLog log(Level most, AgentLog::Form form = AgentLog::Form::terminal) const {
        return {::fileno(file.get()), most, form};
    }
    std::string text() const {
        std::string all(100'000, ' ');
        const ssize_t length = ::pread(::fileno(file.get()), all.data(), all.size(), 0);
        EXPECT_GE(length, 0);
        all.resize(static_cast<std::size_t>(length));
        return all;
    }
    /// Of the log's lines so far.
    std::string text(const AgentLog& lines) const {
        EXPECT_TRUE(lines.drain(20s));
        return text();
    }

    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::tmpfile(), &std::fclose};
};

} // namespace

TEST_F(AgentLogTest, WritesALineAnEventForATerminal) {
    AgentLog lines = log(Level::debug);
    lines.write(Level::info, "Begun.", 0);
    lines.write(Level::warning, "Odd.", 1);
    lines.write(Level::error, "Failed: a\x1B[2J\nb", 2);
    EXPECT_EQ(text(lines), "tervale-agent: Begun.\ntervale-agent: warning: Odd.\n"
                           "tervale-agent: error: Failed: a [2J b\n");
}

TEST_F(AgentLogTest, BeginsEachLineWithItsLevelForTheJournal) {
    AgentLog lines = log(Level::debug, AgentLog::Form::journal);
    for (const Level level : {Level::error, Level::warning, Level::info, Level::debug})
        lines.write(level, "x", 0);
    EXPECT_EQ(text(lines), "<3>x\n<4>x\n<6>x\n<7>x\n");
}

TEST_F(AgentLogTest, LeavesOutWhatNobodyAskedFor) {
    AgentLog lines = log(Level::warning);
    lines.write(Level::info, "a", 0);
    lines.write(Level::debug, "b", 0);
    lines.write(Level::warning, "c", 0);
    EXPECT_EQ(text(lines), "tervale-agent: warning: c\n");
}

TEST_F(AgentLogTest, CountsTheLinesOfAnyoneWhoMakesManyInAShortTime) {
    AgentLog lines = log(Level::info);
    for (int i = 0; i < 1000; ++i)
        lines.write(Level::info, "x", i * 0.001);
    EXPECT_EQ(text(lines).size(), AgentLog::mostLines * std::string("tervale-agent: x\n").size());
    lines.write(Level::info, "y", AgentLog::interval);
    EXPECT_TRUE(text(lines).ends_with(
        "tervale-agent: x\ntervale-agent: warning: 980 lines were left out.\ntervale-agent: y\n"));
}

TEST_F(AgentLogTest, TellsInTheEndHowManyLinesWereLeftOut) {
    {
        AgentLog lines = log(Level::info, AgentLog::Form::journal);
        for (int i = 0; i <= AgentLog::mostLines; ++i)
            lines.write(Level::info, "x", 0);
    }
    EXPECT_TRUE(text().ends_with("<6>x\n<4>1 line was left out.\n")) << text();
}

TEST_F(AgentLogTest, ComplainsAtAnyLevelHoweverManyLinesThereWere) {
    AgentLog lines = log(Level::error);
    for (int i = 0; i <= AgentLog::mostLines; ++i)
        lines.write(Level::error, "x", 0);
    lines.complain("It is\x1B over.");
    EXPECT_TRUE(text(lines).ends_with("error: x\ntervale-agent: It is  over.\n")) << text();
}

TEST_F(AgentLogTest, ComplainsAsAnErrorToTheJournal) {
    AgentLog lines = log(Level::error, AgentLog::Form::journal);
    lines.complain("It is over.");
    EXPECT_EQ(text(lines), "<3>It is over.\n");
}

TEST_F(AgentLogTest, KnowsItsLevelsByName) {
    EXPECT_EQ(AgentLog::levelNamed("warning"), Level::warning);
    EXPECT_EQ(AgentLog::levelNamed("Warning"), std::nullopt);
    EXPECT_EQ(AgentLog::levelNamed(""), std::nullopt);
}
