#include "SMC/DelegatingRegistry.h"

namespace tervale {

std::optional<IORegistry::Service> DelegatingRegistry::findService(const std::string& className) {
    return registry.findService(className);
}

IORegistry::Status DelegatingRegistry::open(Service service, std::uint32_t type,
                                            Connection& connection) {
    return registry.open(service, type, connection);
}

void DelegatingRegistry::release(Service service) {
    registry.release(service);
}

IORegistry::Status DelegatingRegistry::callStruct(Connection connection, std::uint32_t selector,
                                                  const Structure& request, Structure& response) {
    return registry.callStruct(connection, selector, request, response);
}

void DelegatingRegistry::close(Connection connection) {
    registry.close(connection);
}

} // namespace tervale
