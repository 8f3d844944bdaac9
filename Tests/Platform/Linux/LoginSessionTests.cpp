#include "Platform/Linux/LoginSession.h"
#include "Support/FakeLoginManager.h"
#include "Support/PrivateBus.h"
#include "Support/TemporaryFolder.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using namespace tervale;

namespace {

class LoginSessionTest : public testing::Test {
  protected:
    LoginSessionTest() {
        EXPECT_TRUE(eventually([this] { return manager.sessionsAsked == 1; }));
        PrivateBus::settle(connection);
        QCoreApplication::processEvents();
    }
    /// Runs the event loop until what was asked and said has arrived.
    void settle() {
        int looks = 0;
        eventually([&] { return ++looks > 10; });
    }
    bool endsOnceItLooks() {
        return eventually([this] {
            session.look();
            return ends == 1;
        });
    }

    /// As the manager writes one.
    void writeSessionFile() const { std::ofstream(files.path / "1") << ++writes; }

    PrivateBus bus;
    TemporaryFolder files;
    mutable int writes = 0;
    FakeLoginManager manager{bus.connect()};
    QDBusConnection connection = bus.connect();
    int ends = 0;
    LoginSession session{connection, [this] { ++ends; },
                         QString::fromStdString(files.path.string())};
};

} // namespace

TEST_F(LoginSessionTest, IsOverOnceItIsRemoved) {
    emit manager.SessionRemoved("7", QDBusObjectPath("/org/freedesktop/login1/session/_37"));
    settle();
    EXPECT_EQ(ends, 0) << "another one";
    // Nobody can tell when it has learned which session is its own.
    EXPECT_TRUE(eventually([this] {
        emit manager.SessionRemoved("1", QDBusObjectPath(FakeLoginManager::sessionPath));
        return ends == 1;
    }));
    emit manager.SessionRemoved("1", QDBusObjectPath(FakeLoginManager::sessionPath));
    settle();
    EXPECT_EQ(ends, 1);
}

TEST_F(LoginSessionTest, IsOverWhenItIsClosing) {
    session.look();
    settle();
    EXPECT_EQ(ends, 0);
    manager.session.state = "closing";
    EXPECT_TRUE(endsOnceItLooks());
}

TEST_F(LoginSessionTest, IsLookedAtWheneverTheManagerTellsOfIt) {
    manager.tellOfSession();
    settle();
    EXPECT_EQ(ends, 0);
    manager.session.state = "closing";
    // Nobody can tell when it has learned which session is its own.
    EXPECT_TRUE(eventually([this] {
        manager.tellOfSession();
        return ends == 1;
    }));
}

TEST_F(LoginSessionTest, IsLookedAtWheneverTheManagerWritesAFileOfItsSessions) {
    writeSessionFile();
    settle();
    EXPECT_EQ(ends, 0);
    manager.session.state = "closing";
    EXPECT_TRUE(eventually([this] {
        std::filesystem::remove(files.path / "1");
        writeSessionFile();
        return ends == 1;
    }));
}

TEST_F(LoginSessionTest, IsOverWhenItIsClosingBeforeItIsKnown) {
    manager.session.state = "closing";
    int late = 0;
    const LoginSession another(connection, [&] { ++late; });
    EXPECT_TRUE(eventually([&] { return late == 1; }));
}

TEST_F(LoginSessionTest, IsOverWhenNobodyKnowsIt) {
    manager.forgetSession();
    EXPECT_TRUE(endsOnceItLooks());
}

TEST(LoginSessionOfNobody, IsNeverOver) {
    PrivateBus bus;
    int ends = 0;
    LoginSession session(bus.connect(), [&] { ++ends; });
    session.look();
    FakeLoginManager manager(bus.connect());
    emit manager.SessionRemoved("1", QDBusObjectPath(FakeLoginManager::sessionPath));
    int looks = 0;
    eventually([&] { return ++looks > 10; });
    EXPECT_EQ(ends, 0);
}
