#include "Platform/FileDescriptor.h"
#include "Processes/AgentSession.h"
#include "Support/ProcessState.h"

#include <QElapsedTimer>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <vector>

using namespace tervale;

namespace {

/// Listens as a service manager does.
class Manager {
  public:
    explicit Manager(const std::filesystem::path& path)
        : socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.string().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(
            ::bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
            0);
    }
    /// How often it was told this so far.
    std::ptrdiff_t timesTold(const std::string& wanted) {
        char text[100];
        for (ssize_t length = 0;
             (length = ::recv(socket.number(), text, sizeof text, MSG_DONTWAIT)) > 0;)
            told.emplace_back(text, static_cast<std::size_t>(length));
        return std::count(told.begin(), told.end(), wanted);
    }

  private:
    FileDescriptor socket;
    std::vector<std::string> told;
};

/// An agent that a service manager starts, and ends by asking each of the service's processes.
class AgentServiceTest : public AgentSession {
  protected:
    QProcessEnvironment environment() {
        QProcessEnvironment all = bus.environment();
        all.insert("NOTIFY_SOCKET", QString::fromStdString(socket.string()));
        return all;
    }
    static void ask(std::int64_t process) {
        ASSERT_EQ(::kill(static_cast<pid_t>(process), SIGTERM), 0);
    }

    std::filesystem::path socket = bus.runtimeFolder() / "notify";
    Manager manager{socket};
    SimulatorProgram simulator{bus};
};

} // namespace

TEST_F(AgentServiceTest, TellsThatItIsReadyThenThatItLivesEachSecondAndThatItEnds) {
    AgentProcess agent(environment());
    ASSERT_TRUE(eventually([this] { return manager.timesTold("READY=1") == 1; }));
    const auto before = manager.timesTold("WATCHDOG=1");
    QElapsedTimer time;
    time.start();
    ASSERT_TRUE(eventually([&] { return manager.timesTold("WATCHDOG=1") >= before + 3; }));
    EXPECT_GT(time.elapsed(), 1500);
    EXPECT_LT(time.elapsed(), 6000);
    EXPECT_EQ(manager.timesTold("STOPPING=1"), 0);
    agent.send(SIGTERM);
    ASSERT_TRUE(agent.ends());
    EXPECT_EQ(manager.timesTold("STOPPING=1"), 1);
    EXPECT_EQ(manager.timesTold("READY=1"), 1);
}

TEST_F(AgentServiceTest, HandsTheFansBackWhenItsGuardIsAskedToEndBeforeIt) {
    AgentProcess agent(environment());
    ASSERT_TRUE(selectsMaximum());
    const auto second = guard();
    ASSERT_TRUE(second);
    ask(*second);
    agent.send(SIGTERM);
    ASSERT_TRUE(agent.ends());
    EXPECT_EQ(agent.status(), 0);
    EXPECT_TRUE(automatic());
    EXPECT_TRUE(eventually([&] { return isGone(*second); }));
}

TEST_F(AgentServiceTest, IsSurvivedByItsGuardThatIsAskedToEndOnceTheAgentIsKilled) {
    AgentProcess agent(environment());
    ASSERT_TRUE(selectsMaximum());
    const auto second = guard();
    ASSERT_TRUE(second);
    // So that the guard is still at it when it is asked.
    simulator.send(SIGSTOP);
    agent.send(SIGKILL);
    ASSERT_TRUE(agent.ends());
    ask(*second);
    simulator.send(SIGCONT);
    EXPECT_TRUE(eventually([this] { return automatic(); }));
    EXPECT_TRUE(eventually([&] { return isGone(*second); }));
}
