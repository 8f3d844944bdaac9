#include "Platform/macOS/PowerNotifications.h"

#include <IOKit/IOKitLib.h>
#include <IOKit/IOMessage.h>
#include <IOKit/pwr_mgt/IOPMLib.h>
#include <cstdint>
#include <dispatch/dispatch.h>
#include <utility>

namespace tervale {

namespace {

/// What the system calls, for as long as it is registered.
class PowerNotifications {
  public:
    explicit PowerNotifications(SleepHandlers given) : handlers(std::move(given)) {
        root = IORegisterForSystemPower(this, &port, &receive, &notifier);
        if (isRegistered())
            IONotificationPortSetDispatchQueue(port, dispatch_get_main_queue());
    }
    ~PowerNotifications() {
        if (!isRegistered())
            return;
        IODeregisterForSystemPower(&notifier);
        IOServiceClose(root);
        IONotificationPortDestroy(port);
    }
    PowerNotifications(const PowerNotifications&) = delete;
    PowerNotifications& operator=(const PowerNotifications&) = delete;

    bool isRegistered() const { return root != IO_OBJECT_NULL; }

  private:
    static void receive(void* self, io_service_t, std::uint32_t message, void* argument) {
        static_cast<PowerNotifications*>(self)->handle(message,
                                                       reinterpret_cast<std::intptr_t>(argument));
    }
    void handle(std::uint32_t message, std::intptr_t notification) {
        switch (message) {
        case kIOMessageSystemWillSleep:
            handlers.before();
            // Without this answer the machine would wait half a minute.
            IOAllowPowerChange(root, notification);
            break;
        case kIOMessageCanSystemSleep:
            IOAllowPowerChange(root, notification);
            break;
        case kIOMessageSystemHasPoweredOn:
            handlers.after();
            break;
        default:
            break;
        }
    }

    SleepHandlers handlers;
    IONotificationPortRef port = nullptr;
    io_object_t notifier = IO_OBJECT_NULL;
    io_connect_t root = IO_OBJECT_NULL;
};

} // namespace

std::shared_ptr<void> powerNotifications(SleepHandlers handlers) {
    auto registered = std::make_shared<PowerNotifications>(std::move(handlers));
    return registered->isRegistered() ? registered : nullptr;
}

} // namespace tervale
