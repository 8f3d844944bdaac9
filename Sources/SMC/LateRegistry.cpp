#include "SMC/LateRegistry.h"

#include "SMC/ControllerService.h"
#include "SMC/KernelStatus.h"
#include "SMC/SMC.h"

namespace tervale {

namespace {

// Of the one service, and of its one connection.
constexpr std::uint32_t handle = 1;

} // namespace

LateRegistry::~LateRegistry() {
    if (reached)
        registry.close(*reached);
}

std::optional<std::string> LateRegistry::reach() {
    if (reached)
        return std::nullopt;
    try {
        reached = openController(registry);
        return std::nullopt;
    } catch (const SMCError& error) {
        return error.description;
    }
}

std::optional<IORegistry::Service> LateRegistry::findService(const std::string&) {
    return handle;
}

IORegistry::Status LateRegistry::open(Service, std::uint32_t, Connection& connection) {
    connection = handle;
    return 0;
}

void LateRegistry::release(Service) {}

IORegistry::Status LateRegistry::callStruct(Connection, std::uint32_t selector,
                                            const Structure& request, Structure& response) {
    return reached ? registry.callStruct(*reached, selector, request, response)
                   : kernelStatus::notAttached;
}

// The controller's connection lasts as long as the object.
void LateRegistry::close(Connection) {}

} // namespace tervale
