#include "Platform/macOS/IOKitRegistry.h"

#include <IOKit/IOKitLib.h>
#include <mach/mach.h>
#include <type_traits>

namespace tervale {

static_assert(std::is_same_v<io_service_t, IORegistry::Service>);
static_assert(std::is_same_v<io_connect_t, IORegistry::Connection>);
static_assert(std::is_same_v<kern_return_t, IORegistry::Status>);

std::optional<IORegistry::Service> IOKitRegistry::findService(const std::string& className) {
    const CFMutableDictionaryRef matching = IOServiceMatching(className.c_str());
    if (!matching)
        return std::nullopt;
    // Consumes the dictionary, whether it finds something or not.
    const io_service_t service = IOServiceGetMatchingService(kIOMainPortDefault, matching);
    if (service == IO_OBJECT_NULL)
        return std::nullopt;
    return service;
}

IORegistry::Status IOKitRegistry::open(Service service, std::uint32_t type,
                                       Connection& connection) {
    io_connect_t opened = IO_OBJECT_NULL;
    const kern_return_t status = IOServiceOpen(service, mach_task_self(), type, &opened);
    if (status == KERN_SUCCESS)
        connection = opened;
    return status;
}

void IOKitRegistry::release(Service service) {
    IOObjectRelease(service);
}

IORegistry::Status IOKitRegistry::callStruct(Connection connection, std::uint32_t selector,
                                             const Structure& request, Structure& response) {
    std::size_t size = response.size();
    const kern_return_t status = IOConnectCallStructMethod(connection, selector, request.data(),
                                                           request.size(), response.data(), &size);
    if (status != KERN_SUCCESS)
        return status;
    return size == response.size() ? KERN_SUCCESS : kIOReturnUnderrun;
}

void IOKitRegistry::close(Connection connection) {
    IOServiceClose(connection);
}

} // namespace tervale
