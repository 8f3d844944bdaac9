#include "Platform/Platform.h"

#include "Platform/AbsentIORegistry.h"
#include "Platform/Linux/FilePreferences.h"
#include "Platform/ProcessorLoad.h"

#ifdef __linux__
#include "Platform/Linux/ControllerSocket.h"
#include "Platform/Linux/DBusNotificationCenter.h"
#include "Platform/Linux/SocketRegistry.h"
#endif

namespace tervale {

#ifdef __linux__

namespace {

std::unique_ptr<IORegistry> makeRegistry() {
    return std::make_unique<SocketRegistry>(controllerSocket::defaultPath());
}

} // namespace

std::unique_ptr<NotificationCenter> makeNotificationCenter() {
    return DBusNotificationCenter::onSessionBus();
}

std::unique_ptr<IORegistry> makeLentRegistry(const std::filesystem::path& socket) {
    return std::make_unique<SocketRegistry>(socket);
}

#else

namespace {

std::unique_ptr<IORegistry> makeRegistry() {
    return std::make_unique<AbsentIORegistry>();
}

} // namespace

std::unique_ptr<NotificationCenter> makeNotificationCenter() {
    return nullptr;
}

std::unique_ptr<IORegistry> makeLentRegistry(const std::filesystem::path&) {
    return nullptr;
}

#endif

Platform makePlatform(InProcessNotificationCenter::Dispatch dispatch) {
    Platform platform{makeRegistry(), makeNotificationCenter()};
    if (!platform.notificationCenter)
        platform.notificationCenter =
            std::make_unique<InProcessNotificationCenter>(std::move(dispatch));
    return platform;
}

std::unique_ptr<Preferences> makePreferences(const std::string& domain) {
    return std::make_unique<FilePreferences>(configurationFolder() / domain);
}

std::function<std::optional<double>()> makeProcessorLoad() {
    return [load = ProcessorLoad()]() mutable { return load.read(); };
}

} // namespace tervale
