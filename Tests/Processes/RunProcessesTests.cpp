#include "Platform/AgentLock.h"
#include "Processes/Programs.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>

using namespace tervale;

namespace {

/// The script that runs machine, agent and window together, with a window that only waits.
class RunProcessesTest : public testing::Test {
  protected:
    bool allRun() const {
        return eventually([this] { return AgentLock::holder(lock()) && window() > 0; });
    }
    pid_t window() const {
        pid_t process = 0;
        std::ifstream(file) >> process;
        return process;
    }
    static bool isGone(pid_t process) { return ::kill(process, 0) != 0 && errno == ESRCH; }
    std::filesystem::path lock() const { return bus.runtimeFolder() / "tervale" / "agent.lock"; }

    PrivateBus bus;
    std::filesystem::path file = bus.runtimeFolder() / "window";
    /// Ends when it is told to.
    const QString waitingWindow =
        QString::fromStdString("echo $$ >'" + file.string() + "'; exec sleep 1000");
};

} // namespace

TEST_F(RunProcessesTest, EndAtOnceWhenTheyAreToldTo) {
    for (const auto& [signal, status] :
         {std::pair(SIGTERM, 143), std::pair(SIGHUP, 129), std::pair(SIGINT, 130)}) {
        std::filesystem::remove(file);
        ChildProcess script(TERVALE_RUN_PROCESSES,
                            {TERVALE_SIMULATOR, TERVALE_AGENT, "sh", "-c", waitingWindow},
                            bus.environment());
        ASSERT_TRUE(allRun()) << script.errors().toStdString();
        EXPECT_TRUE(script.output().startsWith("Controller on "));
        const pid_t opened = window();
        script.send(signal);
        ASSERT_TRUE(script.ends());
        EXPECT_EQ(script.status(), status);
        EXPECT_TRUE(isGone(opened));
        EXPECT_FALSE(AgentLock::holder(lock()));
        EXPECT_TRUE(script.errors().contains("The fans are automatic."))
            << script.errors().toStdString();
        EXPECT_TRUE(eventually([this] { return !std::filesystem::exists(bus.socket()); }));
    }
}

TEST_F(RunProcessesTest, EndWithTheWindow) {
    ChildProcess script(TERVALE_RUN_PROCESSES,
                        {TERVALE_SIMULATOR, TERVALE_AGENT, "sh", "-c", waitingWindow},
                        bus.environment());
    ASSERT_TRUE(allRun());
    ASSERT_EQ(::kill(window(), SIGTERM), 0);
    ASSERT_TRUE(script.ends());
    EXPECT_EQ(script.status(), 143);
    EXPECT_FALSE(AgentLock::holder(lock()));
    EXPECT_TRUE(eventually([this] { return !std::filesystem::exists(bus.socket()); }));
}

TEST_F(RunProcessesTest, TellThatThereIsNoMac) {
    const SimulatorProgram other(bus);
    ChildProcess script(TERVALE_RUN_PROCESSES, {TERVALE_SIMULATOR, TERVALE_AGENT, "true"},
                        bus.environment());
    ASSERT_TRUE(script.ends());
    EXPECT_EQ(script.status(), 1);
    EXPECT_TRUE(script.errors().endsWith("another process serves there.\n"));
}
