#include "Profiles/InProcessNotificationCenter.h"
#include "TervaleWindow/Shell/WindowDelegate.h"
#include "TervaleWindow/Shell/WindowVisibility.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

/// Runs the event loop until it is ended, or for half a minute at the most; tells whether it was
/// ended.
bool endsTheApplication(const std::function<void()>& cause) {
    QTimer::singleShot(0, cause);
    // It goes with the call: the next event loop has a limit of its own.
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    limit.start(30'000);
    return QApplication::exec() == 0;
}

/// A window that the delegate finds when it is launched.
class WindowDelegateTest : public testing::Test {
  protected:
    WindowDelegateTest() { window.show(); }

    InProcessNotificationCenter center;
    Bridge bridge{center};
    QWidget window;
};

} // namespace

TEST_F(WindowDelegateTest, SizesEveryWindowOnceTheyAreThere) {
    WindowDelegate delegate;
    delegate.applicationDidFinishLaunching(bridge);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.minimumSize(), QSize(780, 520));
}

TEST_F(WindowDelegateTest, EndsTheApplicationWhenTheAgentAsksForIt) {
    WindowDelegate delegate;
    delegate.applicationDidFinishLaunching(bridge);
    EXPECT_TRUE(endsTheApplication([&] { bridge.quitWindow(); }));
    EXPECT_TRUE(endsTheApplication([&] { center.post(Bridge::quitName, "whatever it carries"); }));
}

TEST_F(WindowDelegateTest, CancelsTheSystemsMenusWhenItEndsTheApplication) {
    int cancelled = 0;
    WindowDelegate delegate([&cancelled] { ++cancelled; });
    delegate.applicationDidFinishLaunching(bridge);
    EXPECT_EQ(cancelled, 0);
    EXPECT_TRUE(endsTheApplication([&] { bridge.quitWindow(); }));
    EXPECT_EQ(cancelled, 1);
}

TEST_F(WindowDelegateTest, EndsTheApplicationWhileAMenuIsHeldOpen) {
    WindowDelegate delegate;
    delegate.applicationDidFinishLaunching(bridge);
    QMenu menu(&window);
    menu.addAction("Quiet");
    EXPECT_TRUE(endsTheApplication([&] {
        QTimer::singleShot(0, [&] { bridge.quitWindow(); });
        menu.exec();
    }));
}

TEST(Application, EndsWithItsLastWindow) {
    auto window = std::make_unique<QWidget>();
    window->show();
    EXPECT_TRUE(endsTheApplication([&] { window->close(); }));
}

TEST(WindowVisibility, CountsAsVisibleUntilTheWindowIsThere) {
    WindowVisibility visibility;
    EXPECT_TRUE(visibility.visible());
    QWidget window;
    visibility.follow(window);
    EXPECT_FALSE(visibility.visible());
    window.show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(visibility.visible());
    window.hide();
    EXPECT_FALSE(visibility.visible());
}

TEST(WindowVisibility, IsThatOfAnyOfTheWindows) {
    QWidget window;
    WindowVisibility visibility;
    window.show();
    visibility.follow(window);
    QWidget other;
    other.show();
    QCoreApplication::processEvents();
    window.hide();
    EXPECT_TRUE(visibility.visible());
    other.hide();
    EXPECT_FALSE(visibility.visible());
}

TEST(WindowVisibility, EndsWithMinimising) {
    QWidget window;
    WindowVisibility visibility;
    window.show();
    visibility.follow(window);
    QCoreApplication::processEvents();
    window.showMinimized();
    QCoreApplication::processEvents();
    EXPECT_FALSE(visibility.visible());
    window.showNormal();
    QCoreApplication::processEvents();
    EXPECT_TRUE(visibility.visible());
}
