#include "SMC/ControllerService.h"

#include "SMC/SMC.h"

#include <string>

namespace tervale {

namespace {

constexpr const char* serviceClass = "AppleSMC";
constexpr std::uint32_t userClientType = 0;

} // namespace

IORegistry::Connection openController(IORegistry& registry) {
    const auto service = registry.findService(serviceClass);
    if (!service)
        throw SMCError("AppleSMC not found");
    IORegistry::Connection connection = 0;
    const IORegistry::Status status = registry.open(*service, userClientType, connection);
    registry.release(*service);
    if (status != 0)
        throw SMCError("IOServiceOpen failed: " + std::to_string(status));
    return connection;
}

} // namespace tervale
