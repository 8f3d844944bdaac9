#pragma once

#include "SMC/IORegistry.h"

namespace tervale {

/// The registry of a machine without a system management controller.
class AbsentIORegistry final : public IORegistry {
  public:
    std::optional<Service> findService(const std::string& className) override;
    Status open(Service service, std::uint32_t type, Connection& connection) override;
    void release(Service service) override;
    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override;
    void close(Connection connection) override;
};

} // namespace tervale
