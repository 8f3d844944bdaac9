#pragma once

#include "SMC/IORegistry.h"

namespace tervale {

/// Passes every call on to another registry: the base of those that change a part of what one does.
class DelegatingRegistry : public IORegistry {
  public:
    /// `registry` outlives the object.
    explicit DelegatingRegistry(IORegistry& registry) : registry(registry) {}

    std::optional<Service> findService(const std::string& className) override;
    Status open(Service service, std::uint32_t type, Connection& connection) override;
    void release(Service service) override;
    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override;
    void close(Connection connection) override;

  private:
    IORegistry& registry;
};

} // namespace tervale
