#include "tervalectl/CommandRunner.h"

#include <gtest/gtest.h>

#include <string>

using namespace tervale;

namespace {

class ShowAgentCommand : public testing::Test, protected CommandRunner {
  protected:
    ShowAgentCommand() {
        agent.state.status = "All is well.";
        agentProcess = {1234, "2026-01-31T09:13:28Z", 1235};
    }

    bool shows(const char* name, const char* value) const {
        const QString text = QString::fromStdString(output).simplified();
        return text.contains(QStringLiteral("%1 %2").arg(name, value));
    }

    ScriptedAgent agent{center};
};

} // namespace

TEST_F(ShowAgentCommand, TellsItsProcessItsGuardAndItsStatus) {
    EXPECT_EQ(run({"agent"}), ExitStatus::done);
    EXPECT_TRUE(shows("Answers", "yes")) << output;
    EXPECT_TRUE(shows("Process", "1234")) << output;
    EXPECT_TRUE(shows("Started", "2026-01-31T09:13:28Z")) << output;
    EXPECT_TRUE(shows("Guard", "process 1235")) << output;
    EXPECT_TRUE(shows("Status", "All is well.")) << output;
}

TEST_F(ShowAgentCommand, TellsOfOneThatRunsAndDoesNotAnswer) {
    timeout = 0.05;
    agent.answers = false;
    agentProcess->guard.reset();
    EXPECT_EQ(run({"agent"}), ExitStatus::noAnswer);
    EXPECT_TRUE(shows("Answers", "no")) << output;
    EXPECT_TRUE(shows("Process", "1234")) << output;
    EXPECT_TRUE(shows("Guard", "none")) << output;
    EXPECT_FALSE(shows("Status", "")) << output;
}

TEST_F(ShowAgentCommand, TellsThatTheGuardItNamesIsGone) {
    guard.reset();
    EXPECT_EQ(run({"agent"}), ExitStatus::done);
    EXPECT_TRUE(shows("Guard", "process 1235 is gone")) << output;
    EXPECT_EQ(run({"agent", "--json"}), ExitStatus::done);
    EXPECT_NE(output.find(R"("guard":1235,"guarded":false)"), std::string::npos) << output;
}

TEST_F(ShowAgentCommand, WritesJSON) {
    EXPECT_EQ(run({"agent", "--json"}), ExitStatus::done);
    EXPECT_EQ(output, R"({"answers":true,"process":1234,"started":"2026-01-31T09:13:28Z",)"
                      R"("guard":1235,"guarded":true,"status":"All is well."})"
                      "\n");
}

TEST_F(ShowAgentCommand, LeavesOutOfTheJSONWhatThereIsNot) {
    timeout = 0.05;
    agent.answers = false;
    agentProcess.reset();
    EXPECT_EQ(run({"agent", "--json"}), ExitStatus::noAnswer);
    EXPECT_EQ(output, "{\"answers\":false}\n");
}
