#include "Platform/Platform.h"

#include "Platform/ProcessorLoad.h"

#ifdef __APPLE__
#include "Platform/macOS/BundleMetadata.h"
#include "Platform/macOS/DistributedNotificationCenter.h"
#include "Platform/macOS/IOKitRegistry.h"
#include "Platform/macOS/IncreasedContrast.h"
#include "Platform/macOS/LoginItem.h"
#include "Platform/macOS/OpenMenus.h"
#include "Platform/macOS/PowerNotifications.h"
#include "Platform/macOS/ReducedMotion.h"
#include "Platform/macOS/SystemSymbols.h"
#include "Platform/macOS/TolerantTimer.h"
#include "Platform/macOS/UserDefaultsPreferences.h"

#include <cstdlib>
#else
#include "Platform/Linux/ControllerSocket.h"
#include "Platform/Linux/DBusNotificationCenter.h"
#include "Platform/Linux/DesktopAppearance.h"
#include "Platform/Linux/DesktopMotion.h"
#include "Platform/Linux/DesktopSettings.h"
#include "Platform/Linux/FilePreferences.h"
#include "Platform/Linux/LoginManager.h"
#include "Platform/Linux/LoginSession.h"
#include "Platform/Linux/SocketRegistry.h"

#include <QDBusConnection>
#endif

#include <memory>
#include <utility>

namespace tervale {

#ifdef __APPLE__

std::unique_ptr<IORegistry> makeRegistry() {
    return std::make_unique<IOKitRegistry>();
}

std::unique_ptr<NotificationCenter> makeNotificationCenter() {
    return std::make_unique<DistributedNotificationCenter>();
}

std::unique_ptr<IORegistry> makeRemoteRegistry(const std::filesystem::path&) {
    return nullptr;
}

std::unique_ptr<Preferences> makePreferences(const std::string& domain) {
    return std::make_unique<UserDefaultsPreferences>("com.velnor." + domain);
}

std::function<std::optional<std::string>(const std::string&)> makeBundleText() {
    if (!programHasBundle())
        return nullptr;
    return &bundleText;
}

std::function<std::optional<SymbolMask>(const std::string&, int, double)> makeSystemSymbols() {
    return &systemSymbol;
}

std::function<bool()> makeIncreasedContrast() {
    return &increasedContrast;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): that of Linux keeps it
std::function<DesktopLook()> makeDesktopLook(std::function<void()>) {
    return nullptr;
}

std::function<bool()> makeReducedMotion() {
    return &reducedMotionWanted;
}

std::function<void()> makeOpenMenuCanceller() {
    return openMenuCanceller();
}

std::shared_ptr<void> makeTolerantTimer(std::chrono::milliseconds interval,
                                        std::chrono::milliseconds tolerance,
                                        std::function<void()> handler) {
    return tolerantTimer(interval, tolerance, std::move(handler));
}

std::shared_ptr<void> makeSleepWatch(SleepHandlers handlers) {
    return powerNotifications(std::move(handlers));
}

std::function<std::optional<std::string>(bool)> makeLoginItem() {
    return &setLoginItem;
}

// launchd ends the processes of a session that is over.
// NOLINTNEXTLINE(performance-unnecessary-value-param): that of Linux keeps it
std::unique_ptr<SessionWatch> makeSessionWatch(std::function<void()>) {
    return nullptr;
}

void prepareEventLoop() {
    // The toolkit's own loop for programs without windows serves no run loop, which delivers.
    ::setenv("QT_EVENT_DISPATCHER_CORE_FOUNDATION", "1", 1);
}

#else

std::unique_ptr<IORegistry> makeRegistry() {
    return std::make_unique<SocketRegistry>(controllerSocket::defaultPath());
}

std::unique_ptr<NotificationCenter> makeNotificationCenter() {
    return DBusNotificationCenter::onSessionBus();
}

std::unique_ptr<IORegistry> makeRemoteRegistry(const std::filesystem::path& socket) {
    return std::make_unique<SocketRegistry>(socket);
}

std::unique_ptr<Preferences> makePreferences(const std::string& domain) {
    return std::make_unique<FilePreferences>(configurationFolder() / domain);
}

std::function<std::optional<std::string>(const std::string&)> makeBundleText() {
    return nullptr;
}

std::function<std::optional<SymbolMask>(const std::string&, int, double)> makeSystemSymbols() {
    return nullptr;
}

std::function<bool()> makeIncreasedContrast() {
    return nullptr;
}

namespace {

/// One for all who ask, as long as somebody does.
std::shared_ptr<const DesktopSettings> desktopSettings() {
    static std::weak_ptr<const DesktopSettings> shared;
    std::shared_ptr<const DesktopSettings> settings = shared.lock();
    if (!settings) {
        // Without a bus, the files of GTK's settings tell alone.
        const QDBusConnection bus =
            sessionBusIsThere() ? QDBusConnection::sessionBus() : QDBusConnection(QString());
        settings = std::make_shared<DesktopSettings>(bus, configurationFolder());
        shared = settings;
    }
    return settings;
}

} // namespace

std::function<DesktopLook()> makeDesktopLook(std::function<void()> changed) {
    const auto appearance =
        std::make_shared<DesktopAppearance>(desktopSettings(), std::move(changed));
    return [appearance] { return appearance->look(); };
}

std::function<bool()> makeReducedMotion() {
    const auto motion = std::make_shared<DesktopMotion>(desktopSettings());
    return [motion] { return motion->isReduced(); };
}

std::function<void()> makeOpenMenuCanceller() {
    return nullptr;
}

std::shared_ptr<void> makeTolerantTimer(std::chrono::milliseconds, std::chrono::milliseconds,
                                        // The Mac's keeps it.
                                        // NOLINTNEXTLINE(performance-unnecessary-value-param)
                                        std::function<void()>) {
    return nullptr;
}

std::shared_ptr<void> makeSleepWatch(SleepHandlers handlers) {
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return nullptr;
    return std::make_shared<LoginManager>(bus, std::move(handlers));
}

std::function<std::optional<std::string>(bool)> makeLoginItem() {
    return nullptr;
}

std::unique_ptr<SessionWatch> makeSessionWatch(std::function<void()> over) {
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return nullptr;
    return std::make_unique<LoginSession>(bus, std::move(over));
}

void prepareEventLoop() {}

#endif

LoadReading makeProcessorLoad() {
    return [load = ProcessorLoad()]() mutable { return load.read(); };
}

} // namespace tervale
