#include "SMC/ReadOnlyRegistry.h"

#include "SMC/SMCStructure.h"

namespace tervale {

IORegistry::Status ReadOnlyRegistry::callStruct(Connection connection, std::uint32_t selector,
                                                const Structure& request, Structure& response) {
    if (SMCStructure::fromBytes(request).command == static_cast<std::uint8_t>(SMCCommand::write))
        return 0;
    return DelegatingRegistry::callStruct(connection, selector, request, response);
}

} // namespace tervale
