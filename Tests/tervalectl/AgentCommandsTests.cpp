#include "Profiles/Bridge.h"
#include "Profiles/JSONCoding.h"
#include "tervalectl/CommandRunner.h"

#include <QDateTime>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

const Profile quiet{UUID::random(), "Quiet", kind::Load{}};

class AgentCommands : public testing::Test, protected CommandRunner {
  protected:
    AgentCommands() { agent.state.profiles = {quiet}; }

    void obeyAll() {
        agent.obey = [this](const BridgeCommand& command) {
            if (const auto* select = std::get_if<command::Select>(&command))
                agent.state.selection = select->action;
            if (const auto* timer = std::get_if<command::StartTimer>(&command)) {
                agent.state.timerAction = timer->action;
                agent.state.timerEnds = clock.now() + timer->duration;
            }
            if (std::holds_alternative<command::CancelTimer>(command))
                agent.state.timerAction.reset();
            if (const auto* launch = std::get_if<command::SetLaunchAtLogin>(&command))
                agent.state.launchAtLogin = launch->enabled;
        };
    }

    ScriptedAgent agent{center};
};

} // namespace

TEST_F(AgentCommands, ShowTheState) {
    agent.state.selection = action::Profile{quiet.id};
    agent.state.timerAction = action::Fixed{0.4};
    agent.state.status = "Cooling";
    ASSERT_EQ(run({"state"}), ExitStatus::done);
    EXPECT_EQ(output, "STATE            VALUE\n"
                      "Selection        Quiet\n"
                      "Timer            40%\n"
                      "Status           Cooling\n"
                      "Launch at login  off\n"
                      "Profiles         1\n");
    ASSERT_EQ(run({"state", "--json"}), ExitStatus::done);
    EXPECT_EQ(output, encode(agent.state) + '\n');
}

TEST_F(AgentCommands, ShowWhenTheTimerEnds) {
    agent.state.timerAction = action::Fixed{1};
    agent.state.timerEnds = Date{700000000};
    const std::string date =
        QDateTime::fromSecsSinceEpoch(1678307200).toString("yyyy-MM-dd HH:mm:ss").toStdString();
    ASSERT_EQ(run({"state"}), ExitStatus::done);
    EXPECT_NE(output.find("Max until " + date + "\n"), std::string::npos) << output;
    agent.state.timerEnds = Date{1e300};
    ASSERT_EQ(run({"state"}), ExitStatus::done);
    EXPECT_NE(output.find("Max\n"), std::string::npos) << output;
}

TEST_F(AgentCommands, SendOneCommandAndWaitForItsConfirmation) {
    obeyAll();
    agent.state.status = "Fine";
    ASSERT_EQ(run({"select", "40%"}), ExitStatus::done);
    EXPECT_EQ(agent.heard, (std::vector<BridgeCommand>{command::Select{action::Fixed{0.4}}}));
    EXPECT_EQ(output, "Fine\n");
    ASSERT_EQ(run({"timer", "max", "15m"}), ExitStatus::done);
    EXPECT_EQ(agent.heard.back(), BridgeCommand(command::StartTimer{action::Fixed{1}, 900}));
    ASSERT_EQ(run({"cancel-timer", "--json"}), ExitStatus::done);
    EXPECT_EQ(agent.heard.back(), BridgeCommand(command::CancelTimer{}));
    EXPECT_EQ(output, encode(agent.state) + '\n');
    ASSERT_EQ(run({"launch-at-login", "on"}), ExitStatus::done);
    EXPECT_TRUE(agent.state.launchAtLogin);
    EXPECT_EQ(agent.heard.size(), 4U);
}

TEST_F(AgentCommands, FindProfilesAmongTheAgents) {
    obeyAll();
    ASSERT_EQ(run({"select", "profile", "Quiet"}), ExitStatus::done);
    EXPECT_EQ(agent.heard,
              (std::vector<BridgeCommand>{command::RequestState{},
                                          command::Select{action::Profile{quiet.id}}}));
    ASSERT_EQ(run({"timer", "profile", "Loud", "5m"}), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: There is no profile 'Loud'.\n");
    EXPECT_EQ(agent.heard.back(), BridgeCommand(command::RequestState{}));
}

TEST_F(AgentCommands, AreRefusedByAnAgentThatDoesOtherwise) {
    timeout = 0.05;
    agent.state.status = "Too hot\nfor that";
    EXPECT_EQ(run({"select", "max"}), ExitStatus::refused);
    EXPECT_EQ(errors, "tervalectl: The agent did not take the command. Its status: Too hot for "
                      "that\n");
    EXPECT_EQ(output, "");
    EXPECT_EQ(agent.heard, (std::vector<BridgeCommand>{command::Select{action::Fixed{1}},
                                                       command::RequestState{}}));
}

TEST_F(AgentCommands, AreNotConfirmedByATimerThatWasThereBefore) {
    timeout = 0.05;
    agent.state.timerAction = action::Fixed{1};
    for (const double end : {60.0, 899.0, 901.0}) {
        agent.state.timerEnds = clock.now() + end;
        EXPECT_EQ(run({"timer", "max", "15m"}), ExitStatus::refused) << end;
    }
}

TEST_F(AgentCommands, AskAgainOnceWhereTheAgentKeptSilent) {
    timeout = 1;
    agent.answers = false;
    agent.obey = [this](const BridgeCommand& command) {
        if (std::holds_alternative<command::RequestState>(command))
            agent.answers = true;
        else
            agent.state.launchAtLogin = true;
    };
    EXPECT_EQ(run({"launch-at-login", "on"}), ExitStatus::done);
    EXPECT_EQ(agent.heard.size(), 2U);
}

TEST_F(AgentCommands, TellThatNobodyAnswers) {
    timeout = 0.05;
    agent.answers = false;
    for (const QStringList& arguments : std::vector<QStringList>{{"state"},
                                                                 {"select", "max"},
                                                                 {"select", "profile", "Quiet"},
                                                                 {"cancel-timer"},
                                                                 {"check-for-updates"},
                                                                 {"profiles", "list"}}) {
        EXPECT_EQ(run(arguments), ExitStatus::noAnswer) << arguments.join(' ').toStdString();
        EXPECT_EQ(errors, "tervalectl: The agent in the menu bar did not answer within 0.05 s.\n");
        EXPECT_EQ(output, "");
    }
}

TEST_F(AgentCommands, WaitBeyondStatesThatConfirmNothing) {
    agent.answers = false;
    agent.obey = [this](const BridgeCommand&) {
        Bridge bridge(center);
        bridge.publish(agent.state);
        agent.state.selection = action::Fixed{1};
        bridge.publish(agent.state);
    };
    EXPECT_EQ(run({"select", "max"}), ExitStatus::done);
    EXPECT_EQ(agent.heard.size(), 1U);
}

TEST_F(AgentCommands, TakeAnyAnswerToACheckForUpdates) {
    agent.state.status = "Tervale is up to date";
    EXPECT_EQ(run({"check-for-updates"}), ExitStatus::done);
    EXPECT_EQ(output, "Tervale is up to date\n");
}

TEST_F(AgentCommands, IgnoreRubbishWhileTheyWait) {
    timeout = 0.05;
    agent.answers = false;
    agent.obey = [this](const BridgeCommand&) {
        center.post(Bridge::stateName, "{");
        center.post(Bridge::stateName, std::nullopt);
    };
    EXPECT_EQ(run({"state"}), ExitStatus::noAnswer);
}
