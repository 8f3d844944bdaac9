#include "TervaleWindow/Shell/Backend.h"

#include "Platform/Platform.h"
#include "TervaleWindow/Shell/SimulatedBackend.h"

#include <QCoreApplication>

namespace tervale {

namespace {

class SystemBackend final : public Backend {
  public:
    IORegistry& registry() override { return *platform.registry; }
    NotificationCenter& notificationCenter() override { return *platform.notificationCenter; }

  private:
    Platform platform = makePlatform(&Backend::runOnMainThread);
};

} // namespace

std::unique_ptr<Backend> Backend::system() {
    return std::make_unique<SystemBackend>();
}

std::unique_ptr<Backend> Backend::simulation() {
    return std::make_unique<SimulatedBackend>();
}

void Backend::runOnMainThread(std::function<void()> task) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(task), Qt::QueuedConnection);
}

} // namespace tervale
