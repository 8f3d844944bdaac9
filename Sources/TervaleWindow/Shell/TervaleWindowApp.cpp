#include "TervaleWindow/Shell/TervaleWindowApp.h"

namespace tervale {

TervaleWindowApp::TervaleWindowApp(std::unique_ptr<Backend> machine)
    : backend(std::move(machine)),
      bridge(backend->notificationCenter()) {}

void TervaleWindowApp::launch(Pane pane) {
    model = std::make_unique<Model>(backend->registry(), bridge, clock, visibility);
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
