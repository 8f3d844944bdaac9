#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Profiles/StoringFailure.h"
#include "Support/BreakableCenter.h"
#include "tervalectl/CommandRunner.h"
#include "tervalectl/PublishedState.h"

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

using namespace tervale;

namespace {

const Profile silent{UUID::random(), "Quiet", kind::Load{}};

class AgentCommands : public testing::Test, protected CommandRunner {
  protected:
    AgentCommands() { agent.state.profiles = {silent}; }

    void obeyAll() {
        agent.obey = [this](const BridgeCommand& command) {
            if (const auto* select = std::get_if<command::Select>(&command))
                agent.state.selection = select->action;
            if (const auto* timer = std::get_if<command::StartTimer>(&command)) {
                agent.state.timerAction = timer->action;
                agent.state.timerEnds = clock.now() + timer->duration;
            }
            if (std::holds_alternative<command::CancelTimer>(command)) {
                agent.state.timerAction.reset();
                agent.state.timerEnds.reset();
            }
            if (const auto* launch = std::get_if<command::SetLaunchAtLogin>(&command))
                agent.state.launchAtLogin = launch->enabled;
        };
    }

    ScriptedAgent agent{center};
    QObject later;
};

} // namespace

TEST_F(AgentCommands, ShowTheState) {
    agent.state.selection = action::Profile{silent.id};
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
    EXPECT_EQ(output, lineOf(agent.state));
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

TEST_F(AgentCommands, WriteWhenTheTimerEndsAlsoInISO8601) {
    agent.state.timerAction = action::Fixed{1};
    agent.state.timerEnds = Date{700000000.4};
    ASSERT_EQ(run({"state", "--json"}), ExitStatus::done);
    EXPECT_NE(output.find(R"("timerEnds":700000000.4,"timerEndsAt":"2023-03-08T20:26:40Z",)"),
              std::string::npos)
        << output;
    EXPECT_EQ(std::get<BridgeState>(decode<BridgeState>(output)), agent.state);
    for (const double beyond : {1e300, -1e300, 252424598400.0 + 1e6}) {
        agent.state.timerEnds = Date{beyond};
        ASSERT_EQ(run({"state", "--json"}), ExitStatus::done);
        EXPECT_EQ(output, lineOf(agent.state));
    }
}

TEST_F(AgentCommands, FollowTheStateFromChangeToChange) {
    agent.obey = [this](const BridgeCommand&) {
        agent.obey = nullptr;
        // One change after another, and one state that changes nothing.
        QTimer::singleShot(0, &later, [this] {
            Bridge bridge(center);
            bridge.publish(agent.state);
            agent.state.status = "Too hot";
            bridge.publish(agent.state);
            agent.state.timerAction = action::Fixed{1};
            bridge.publish(agent.state);
        });
    };
    const BridgeState before = agent.state;
    ASSERT_EQ(run({"state", "--follow", "--count", "3", "--json"}), ExitStatus::done);
    std::istringstream lines(output);
    std::vector<BridgeState> states;
    for (std::string line; std::getline(lines, line);)
        states.push_back(std::get<BridgeState>(decode<BridgeState>(line)));
    ASSERT_EQ(states.size(), 3U);
    EXPECT_EQ(states[0], before);
    EXPECT_EQ(states[1].status, "Too hot");
    EXPECT_EQ(states[1].timerAction, std::nullopt);
    EXPECT_EQ(states[2], agent.state);
}

TEST_F(AgentCommands, TellWhetherTheSafetyLatchIsEngaged) {
    ASSERT_EQ(run({"state", "--json"}), ExitStatus::done);
    EXPECT_NE(output.find(R"("safety":false)"), std::string::npos) << output;
    agent.obey = [this](const BridgeCommand&) {
        agent.obey = nullptr;
        QTimer::singleShot(0, &later, [this] {
            Bridge bridge(center);
            agent.state.status = "Too hot: Max until every CPU and GPU sensor is below 85 °C.";
            bridge.publish(agent.state);
            agent.state.status =
                "Fan 1 cannot be set. It is too hot: the fans should run at Max until "
                "every CPU and GPU sensor is below 85 °C.";
            bridge.publish(agent.state);
            agent.state.status.reset();
            bridge.publish(agent.state);
        });
    };
    ASSERT_EQ(run({"state", "--follow", "--count", "4", "--json"}), ExitStatus::done);
    std::vector<bool> engaged;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);)
        engaged.push_back(line.find(R"("safety":true)") != std::string::npos);
    EXPECT_EQ(engaged, (std::vector<bool>{false, true, true, false})) << output;
}

TEST_F(AgentCommands, FollowTheStateInLinesForPeople) {
    agent.obey = [this](const BridgeCommand&) {
        agent.obey = nullptr;
        QTimer::singleShot(0, &later, [this] {
            Bridge bridge(center);
            agent.state.launchAtLogin = true;
            bridge.publish(agent.state);
            agent.state.status = "Too hot";
            bridge.publish(agent.state);
        });
    };
    ASSERT_EQ(run({"state", "--follow", "--count", "2"}), ExitStatus::done);
    EXPECT_TRUE(output.starts_with("TIME ")) << output;
    EXPECT_EQ(std::ranges::count(output, '\n'), 3);
    EXPECT_TRUE(output.ends_with(" Too hot\n")) << output;
}

TEST_F(AgentCommands, FollowNobodyWhoDoesNotAnswer) {
    timeout = 0.05;
    agent.answers = false;
    EXPECT_EQ(run({"state", "--follow"}), ExitStatus::noAnswer);
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
    EXPECT_EQ(output, lineOf(agent.state));
    ASSERT_EQ(run({"launch-at-login", "on"}), ExitStatus::done);
    EXPECT_TRUE(agent.state.launchAtLogin);
    EXPECT_EQ(agent.heard.size(), 4U);
}

TEST_F(AgentCommands, FindProfilesAmongTheAgents) {
    obeyAll();
    ASSERT_EQ(run({"select", "profile", "Quiet"}), ExitStatus::done);
    EXPECT_EQ(agent.heard,
              (std::vector<BridgeCommand>{command::RequestState{},
                                          command::Select{action::Profile{silent.id}}}));
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

TEST_F(AgentCommands, FailWhenTheAgentCouldNotStoreWhatItTook) {
    obeyAll();
    agent.state.status = storingFailure("Read-only file system");
    EXPECT_EQ(run({"select", "max"}), ExitStatus::refused);
    EXPECT_NE(errors.find("Read-only file system"), std::string::npos) << errors;
    EXPECT_EQ(run({"launch-at-login", "on"}), ExitStatus::refused);
    EXPECT_EQ(run({"timer", "max", "15m"}), ExitStatus::done) << "which is not stored";
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
        EXPECT_EQ(errors, "tervalectl: The agent did not answer within 0.05 s.\n");
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

TEST_F(AgentCommands, EndWhenTheSessionBusDoes) {
    BreakableCenter breakable;
    otherCenter = &breakable;
    QTimer::singleShot(0, &later, [&] { breakable.change(Channel::gone); });
    EXPECT_EQ(run({"select", "max"}), ExitStatus::noAnswer);
    EXPECT_EQ(errors, "tervalectl: The way to the agent is gone: the session bus has ended.\n");
}

TEST_F(AgentCommands, FollowTheStateOnANewSessionBus) {
    BreakableCenter breakable;
    ScriptedAgent other(breakable);
    otherCenter = &breakable;
    QTimer::singleShot(0, &later, [&] {
        breakable.change(Channel::gone);
        other.state.status = "Too hot";
        breakable.change(Channel::back);
    });
    ASSERT_EQ(run({"state", "--follow", "--count", "2"}), ExitStatus::done) << errors;
    EXPECT_TRUE(output.ends_with(" Too hot\n")) << output;
}

TEST_F(AgentCommands, FollowNobodyOnceTheSessionBusIsGoneForGood) {
    BreakableCenter breakable;
    ScriptedAgent other(breakable);
    otherCenter = &breakable;
    timeout = 0.05;
    QTimer::singleShot(0, &later, [&] { breakable.change(Channel::gone); });
    EXPECT_EQ(run({"state", "--follow"}), ExitStatus::noAnswer);
    EXPECT_NE(errors.find("the session bus has ended"), std::string::npos) << errors;
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
