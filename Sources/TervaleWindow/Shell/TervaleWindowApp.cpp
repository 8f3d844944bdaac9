#include "TervaleWindow/Shell/TervaleWindowApp.h"

#include <QGuiApplication>

#include <utility>

namespace tervale {

using namespace std::chrono_literals;

TervaleWindowApp::TervaleWindowApp(Machine chosen)
    : machine(std::move(chosen)),
      bridge(*machine.notificationCenter) {}

void TervaleWindowApp::launch(Pane pane) {
    model = std::make_unique<Model>(*machine.registry, bridge, clock, visibility);
    // Tests run on other platforms of the toolkit's, which serve no timers of the system's.
    if (QGuiApplication::platformName() == QLatin1String("cocoa")) {
        if (auto timer = makeTolerantTimer(1s, 200ms, [this] { model->refresh(); }))
            model->pollWith(std::move(timer));
    }
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

} // namespace tervale
