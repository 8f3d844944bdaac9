#include "Processes/AgentSession.h"
#include "Support/FakeLoginManager.h"

#include <QElapsedTimer>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using namespace tervale;

namespace {

/// An agent and its guard that log all they can to a pipe which nobody reads any more: a terminal
/// that is halted, a pager that waits.
class BlockedLogTest : public AgentSession {
  protected:
    BlockedLogTest() {
        EXPECT_EQ(::mkfifo(path.c_str(), S_IRUSR | S_IWUSR), 0);
        // With a writer of its own, it never ends.
        log = FileDescriptor(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
        EXPECT_TRUE(log);
    }
    ~BlockedLogTest() override { read(); }

    void startAgent(QProcessEnvironment environment) {
        environment.insert("LOG", QString::fromStdString(path.string()));
        agent = std::make_unique<ChildProcess>("/bin/sh",
                                               QStringList{"-c", "exec \"$0\" \"$@\" 2>\"$LOG\"",
                                                           TERVALE_AGENT, "--log-level", "debug"},
                                               environment);
        ASSERT_TRUE(eventually([this] { return read().contains("Profiles: "); }));
    }
    const QByteArray& read() {
        std::array<char, 4096> part{};
        for (ssize_t length = 0; (length = ::read(log.number(), part.data(), part.size())) > 0;)
            logged.append(part.data(), length);
        return logged;
    }
    void fill() const {
        const QByteArray much(4096, '.');
        while (::write(log.number(), much.data(), 4096) > 0 || ::write(log.number(), ".", 1) > 0) {
        }
    }
    /// The fans are at the maximum, and nobody reads the log from then on.
    void selectMaximumAndBlock() {
        ASSERT_TRUE(selectsMaximum());
        fill();
    }

    std::filesystem::path path = bus.runtimeFolder() / "log";
    FileDescriptor log;
    QByteArray logged;
    SimulatorProgram simulator{bus};
    std::unique_ptr<ChildProcess> agent;
};

} // namespace

TEST_F(BlockedLogTest, KeepsNoGuardFromHandingBackAtOnceWhenTheAgentIsKilled) {
    startAgent(bus.environment());
    selectMaximumAndBlock();
    QElapsedTimer sinceKill;
    sinceKill.start();
    agent->send(SIGKILL);
    EXPECT_TRUE(eventually([this] { return automatic(); }));
    EXPECT_LT(sinceKill.elapsed(), 1000);
}

TEST_F(BlockedLogTest, KeepsNoGuardFromHandingBackForAnAgentThatIsStopped) {
    startAgent(bus.environment());
    selectMaximumAndBlock();
    QElapsedTimer sinceStop;
    sinceStop.start();
    agent->send(SIGSTOP);
    // It tells of each silent second.
    EXPECT_TRUE(eventually([this] { return automatic(); }));
    EXPECT_LT(sinceStop.elapsed(), 13000);
    EXPECT_TRUE(agent->ends());
}

TEST_F(BlockedLogTest, KeepsNoAgentFromEndingWithinTwoSeconds) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        startAgent(bus.environment());
        selectMaximumAndBlock();
        QElapsedTimer sinceSignal;
        sinceSignal.start();
        agent->send(signal);
        EXPECT_TRUE(eventually([this] { return automatic(); }));
        EXPECT_LT(sinceSignal.elapsed(), 1000);
        ASSERT_TRUE(agent->ends());
        EXPECT_LT(sinceSignal.elapsed(), 2000);
        EXPECT_EQ(agent->status(), 0);
        read();
        logged.clear();
    }
}

TEST_F(BlockedLogTest, KeepsNoAgentFromDrivingTheFansAndIsToldWhatWasLeftOut) {
    startAgent(bus.environment());
    selectMaximumAndBlock();
    for (int round = 0; round < 100; ++round)
        bridge.send(command::SetLaunchAtLogin{round % 2 == 0});
    bridge.send(command::Select{action::Automatic{}});
    ASSERT_TRUE(eventually([this] { return automatic(); }));
    ASSERT_TRUE(selectsMaximum());
    read();
    agent->send(SIGTERM);
    ASSERT_TRUE(agent->ends());
    EXPECT_TRUE(read().contains(" lines were left out.\n")) << logged.right(2000).constData();
}

TEST_F(BlockedLogTest, KeepsNoAgentWhoseToolkitHasMuchToTell) {
    QProcessEnvironment environment = bus.environment();
    // A line for each message of the bus, some of them from a thread of the toolkit's own.
    environment.insert("QDBUS_DEBUG", "1");
    environment.insert("QT_LOGGING_RULES", "qt.dbus.*=true");
    startAgent(environment);
    ASSERT_TRUE(eventually([this] { return read().contains("QDBus"); }));
    selectMaximumAndBlock();
    bridge.send(command::Select{action::Automatic{}});
    EXPECT_TRUE(eventually([this] { return automatic(); }));
    EXPECT_TRUE(selectsMaximum()) << "it goes on";
    agent->send(SIGTERM);
    EXPECT_TRUE(agent->ends());
    EXPECT_TRUE(automatic());
}

TEST_F(BlockedLogTest, KeepsNoAgentFromHandingBackBeforeSleep) {
    FakeLoginManager manager(bus.connect());
    QProcessEnvironment environment = bus.environment();
    environment.insert("DBUS_SYSTEM_BUS_ADDRESS", bus.address());
    startAgent(environment);
    ASSERT_TRUE(eventually([&] { return manager.isDelayed(); }));
    selectMaximumAndBlock();
    QElapsedTimer sinceNews;
    sinceNews.start();
    emit manager.PrepareForSleep(true);
    ASSERT_TRUE(eventually([&] { return !manager.isDelayed(); }));
    EXPECT_LT(sinceNews.elapsed(), 1000);
    EXPECT_TRUE(automatic()) << "before the machine is let sleep";
    emit manager.PrepareForSleep(false);
    EXPECT_TRUE(eventually([this] { return manual(); }));
}
