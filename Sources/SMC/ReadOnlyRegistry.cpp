#include "SMC/ReadOnlyRegistry.h"

#include "SMC/SMCStructure.h"

namespace tervale {

std::optional<IORegistry::Service> ReadOnlyRegistry::findService(const std::string& className) {
    return registry.findService(className);
}

IORegistry::Status ReadOnlyRegistry::open(Service service, std::uint32_t type,
                                          Connection& connection) {
    return registry.open(service, type, connection);
}

void ReadOnlyRegistry::release(Service service) {
    registry.release(service);
}

IORegistry::Status ReadOnlyRegistry::callStruct(Connection connection, std::uint32_t selector,
                                                const Structure& request, Structure& response) {
    if (SMCStructure::fromBytes(request).command == static_cast<std::uint8_t>(SMCCommand::write))
        return 0;
    return registry.callStruct(connection, selector, request, response);
}

void ReadOnlyRegistry::close(Connection connection) {
    registry.close(connection);
}

} // namespace tervale
