#include "Platform/AgentLock.h"
#include "Processes/Programs.h"
#include "Support/ProcessState.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>

using namespace tervale;

namespace {

namespace fs = std::filesystem;

/// The script that runs machine, agent and window together, with a window that only waits.
class RunProcessesTest : public testing::Test {
  protected:
    bool allRun() const {
        return eventually([this] { return agent() > 0 && window() > 0; });
    }
    pid_t window() const {
        pid_t process = 0;
        std::ifstream(file) >> process;
        return process;
    }
    pid_t agent() const {
        const auto holder = AgentLock::holder(lock());
        return holder ? static_cast<pid_t>(holder->process.value_or(0)) : 0;
    }
    /// As the window tells it.
    fs::path runtimeFolder() const {
        std::string number;
        std::string folder;
        std::getline(std::getline(std::ifstream(file), number), folder);
        return folder;
    }
    fs::path lock() const { return runtimeFolder() / "tervale" / "agent.lock"; }
    fs::path socket() const { return runtimeFolder() / "tervale" / "controller.socket"; }
    /// Whether nothing is left of a session that lay there.
    static bool leftNothing(const fs::path& runtimeFolder) {
        return runtimeFolder.has_parent_path() && !fs::exists(runtimeFolder.parent_path());
    }
    QString program(const std::string& name, const std::string& text) const {
        const fs::path path = bus.runtimeFolder() / name;
        std::ofstream(path) << "#!/bin/sh\n" << text << '\n';
        fs::permissions(path, fs::perms::owner_all);
        return QString::fromStdString(path.string());
    }
    QString windowThat(const std::string& does) const {
        return QString::fromStdString("printf '%s\\n%s\\n' $$ \"$XDG_RUNTIME_DIR\" >'" +
                                      file.string() + ".new' && mv '" + file.string() + ".new' '" +
                                      file.string() + "'; " + does);
    }

    PrivateBus bus;
    fs::path file = bus.runtimeFolder() / "window";
    /// Ends when it is told to.
    const QString waitingWindow = windowThat("exec sleep 1000");
};

} // namespace

TEST_F(RunProcessesTest, EndAtOnceWhenTheyAreToldTo) {
    for (const auto& [signal, status] : {std::pair(SIGTERM, 143), std::pair(SIGHUP, 129),
                                         std::pair(SIGINT, 130), std::pair(SIGQUIT, 131)}) {
        fs::remove(file);
        ChildProcess script(TERVALE_RUN_PROCESSES,
                            {TERVALE_SIMULATOR, TERVALE_AGENT, "sh", "-c", waitingWindow},
                            bus.environment());
        ASSERT_TRUE(allRun()) << script.errors().toStdString();
        ASSERT_TRUE(script.says("Controller on "));
        EXPECT_TRUE(script.output().startsWith("Controller on "));
        const pid_t opened = window();
        const pid_t driving = agent();
        const fs::path folder = runtimeFolder();
        EXPECT_TRUE(fs::exists(socket()));
        script.send(signal);
        ASSERT_TRUE(script.ends());
        EXPECT_EQ(script.status(), status);
        EXPECT_TRUE(isGone(opened));
        EXPECT_TRUE(isGone(driving));
        EXPECT_FALSE(AgentLock::holder(lock()));
        EXPECT_TRUE(script.errors().contains("The fans are automatic."))
            << script.errors().toStdString();
        EXPECT_TRUE(eventually([this] { return !fs::exists(socket()); }));
        EXPECT_TRUE(leftNothing(folder));
    }
}

TEST_F(RunProcessesTest, EndInOrderWhenTheTerminalInterruptsAllOfThem) {
    const fs::path ending = bus.runtimeFolder() / "ending";
    const fs::path mayEnd = bus.runtimeFolder() / "may-end";
    // It heeds the signal before it tells that it is there.
    const QString slowWindow =
        QString::fromStdString("trap \": >'" + ending.string() + "'; while [ ! -e '" +
                               mayEnd.string() + "' ]; do sleep 0.02; done; exit 0\" TERM; ") +
        windowThat("while :; do sleep 0.02; done");
    // The leader of a group, as what a shell starts on a terminal.
    ChildProcess script(
        "setsid", {TERVALE_RUN_PROCESSES, TERVALE_SIMULATOR, TERVALE_AGENT, "sh", "-c", slowWindow},
        bus.environment());
    ASSERT_TRUE(allRun()) << script.errors().toStdString();
    const pid_t driving = agent();
    const fs::path folder = runtimeFolder();
    ASSERT_EQ(::kill(-static_cast<pid_t>(script.id()), SIGINT), 0);
    ASSERT_TRUE(eventually([&] { return fs::exists(ending); }));
    // The agent and the Mac are there until the window has ended.
    EXPECT_EQ(agent(), driving);
    EXPECT_EQ(::kill(driving, 0), 0);
    EXPECT_TRUE(fs::exists(socket()));
    std::ofstream(mayEnd) << "";
    ASSERT_TRUE(script.ends());
    EXPECT_EQ(script.status(), 130);
    EXPECT_TRUE(script.errors().contains("The fans are automatic."))
        << script.errors().toStdString();
    EXPECT_TRUE(isGone(driving));
    EXPECT_TRUE(leftNothing(folder));
}

TEST_F(RunProcessesTest, EndWithTheWindow) {
    ChildProcess script(TERVALE_RUN_PROCESSES,
                        {TERVALE_SIMULATOR, TERVALE_AGENT, "sh", "-c", waitingWindow},
                        bus.environment());
    ASSERT_TRUE(allRun());
    const fs::path folder = runtimeFolder();
    ASSERT_EQ(::kill(window(), SIGTERM), 0);
    ASSERT_TRUE(script.ends());
    EXPECT_EQ(script.status(), 143);
    EXPECT_FALSE(AgentLock::holder(lock()));
    EXPECT_TRUE(eventually([this] { return !fs::exists(socket()); }));
    EXPECT_TRUE(script.errors().contains("The fans are automatic."))
        << script.errors().toStdString();
    EXPECT_TRUE(leftNothing(folder));
}

TEST_F(RunProcessesTest, EndWithTheAgent) {
    ChildProcess script(TERVALE_RUN_PROCESSES,
                        {TERVALE_SIMULATOR, TERVALE_AGENT, "sh", "-c", waitingWindow},
                        bus.environment());
    ASSERT_TRUE(allRun());
    const fs::path folder = runtimeFolder();
    const pid_t opened = window();
    ASSERT_EQ(::kill(agent(), SIGKILL), 0);
    ASSERT_TRUE(script.ends());
    EXPECT_EQ(script.status(), 137);
    EXPECT_TRUE(script.errors().contains("The agent has ended, and so do the others.\n"))
        << script.errors().toStdString();
    EXPECT_TRUE(isGone(opened));
    EXPECT_TRUE(leftNothing(folder));
}

TEST_F(RunProcessesTest, ShareNothingWithAnAgentThatRunsAlready) {
    const SimulatorProgram mac(bus);
    const AgentProcess own(bus);
    const fs::path ownLock = bus.runtimeFolder() / "tervale" / "agent.lock";
    const auto before = AgentLock::holder(ownLock);
    ASSERT_TRUE(before);
    const auto settings = bus.environment().value("XDG_CONFIG_HOME").toStdString();
    fs::remove_all(settings);
    ChildProcess script(TERVALE_RUN_PROCESSES,
                        {TERVALE_SIMULATOR, TERVALE_AGENT, "sh", "-c", waitingWindow},
                        bus.environment());
    ASSERT_TRUE(allRun()) << script.errors().toStdString();
    EXPECT_NE(agent(), before->process);
    script.send(SIGTERM);
    ASSERT_TRUE(script.ends());
    EXPECT_FALSE(fs::exists(settings)) << "the starter profiles were stored elsewhere";
    const auto after = AgentLock::holder(ownLock);
    ASSERT_TRUE(after);
    EXPECT_EQ(after->process, before->process);
    EXPECT_TRUE(own.runs() && mac.runs());
    EXPECT_TRUE(fs::exists(bus.socket()));
}

TEST_F(RunProcessesTest, TellThatThereIsNoMac) {
    const SimulatorProgram other(bus);
    const QString refused = program("simulator", std::string("exec '") + TERVALE_SIMULATOR +
                                                     "' --socket '" + bus.socket().string() + "'");
    ChildProcess script(TERVALE_RUN_PROCESSES, {refused, TERVALE_AGENT, "true"}, bus.environment());
    ASSERT_TRUE(script.ends());
    EXPECT_EQ(script.status(), 1);
    EXPECT_TRUE(script.errors().endsWith("another process serves there.\n"))
        << script.errors().toStdString();
}
