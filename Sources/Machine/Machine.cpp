#include "Machine/Machine.h"

#include "Machine/SimulatedBackend.h"
#include "Platform/Platform.h"

#include <QCoreApplication>

#include <utility>

namespace tervale {

namespace {

class SystemBackend final : public Backend {
  public:
    explicit SystemBackend(Platform platform) : platform(std::move(platform)) {}

    IORegistry& registry() override { return *platform.registry; }
    NotificationCenter& notificationCenter() override { return *platform.notificationCenter; }
    std::optional<double> processorLoad() override { return load(); }

  private:
    Platform platform;
    std::function<std::optional<double>()> load = makeProcessorLoad();
};

} // namespace

std::unique_ptr<Backend> Backend::system() {
    return std::make_unique<SystemBackend>(makePlatform(&runOnMainThread));
}

std::unique_ptr<Backend> Backend::lentController(const std::filesystem::path& socket) {
    auto registry = makeLentRegistry(socket);
    if (!registry)
        return nullptr;
    Platform platform = makePlatform(&runOnMainThread);
    platform.registry = std::move(registry);
    return std::make_unique<SystemBackend>(std::move(platform));
}

std::unique_ptr<Backend> Backend::simulation() {
    return std::make_unique<SimulatedBackend>();
}

void Backend::runOnMainThread(std::function<void()> task) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(task), Qt::QueuedConnection);
}

} // namespace tervale
