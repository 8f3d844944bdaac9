#include "TervaleWindow/Shell/TervaleWindowApp.h"

#include <utility>

namespace tervale {

TervaleWindowApp::TervaleWindowApp(Machine chosen)
    : machine(std::move(chosen)),
      bridge(*machine.notificationCenter) {}

void TervaleWindowApp::launch(Pane pane) {
    model = std::make_unique<Model>(*machine.registry, bridge, clock, visibility);
    content = std::make_unique<ContentView>(*model, bridge);
    content->setObjectName(QStringLiteral("main"));
    content->setWindowTitle(QStringLiteral("Tervale"));
    content->setSection(pane);
    content->resize(defaultWidth, defaultHeight);
    content->show();
    visibility.follow(*content);
    delegate.applicationDidFinishLaunching(bridge);
}

} // namespace tervale
