#include "TervaleWindow/Shell/TervaleWindowApp.h"

#include <QGuiApplication>

#include <utility>

namespace tervale {

namespace {

/// The system's timers, which save energy, where it has some.
TimerFactory timers() {
    // Tests run on other platforms of the toolkit's, which serve no timers of the system's.
    if (QGuiApplication::platformName() != QLatin1String("cocoa"))
        return &makeToolkitTimer;
    return [](auto interval, auto tolerance, const auto& handler) {
        auto timer = makeTolerantTimer(interval, tolerance, handler);
        return timer ? timer : makeToolkitTimer(interval, tolerance, handler);
    };
}

} // namespace

TervaleWindowApp::TervaleWindowApp(Machine chosen)
    : machine(std::move(chosen)),
      bridge(*machine.notificationCenter) {}

void TervaleWindowApp::launch(Pane pane) {
    model = std::make_unique<Model>(*machine.registry, bridge, clock, visibility, timers());
    // What the agent published while it was out of reach is lost.
    channelObserver = bridge.onChannel([this](Channel channel) {
        if (channel == Channel::back)
            bridge.send(command::RequestState{});
    });
    content = std::make_unique<ContentView>(*model, bridge, pane);
    content->setObjectName(QStringLiteral("main"));
    content->setWindowTitle(QStringLiteral("Tervale"));
    content->resize(defaultWidth, defaultHeight);
    content->show();
    visibility.follow(*content);
    delegate.applicationDidFinishLaunching(bridge);
}

bool TervaleWindowApp::hasMachine() const {
    return !model->fans().empty() || !model->sensors().empty();
}

} // namespace tervale
