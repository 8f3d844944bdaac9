#pragma once

#include "SMC/IORegistry.h"

namespace tervale {

/// Another registry, to whose controller nothing can be written: a write is answered as if it had
/// been done.
class ReadOnlyRegistry final : public IORegistry {
  public:
    /// `registry` outlives the object.
    explicit ReadOnlyRegistry(IORegistry& registry) : registry(registry) {}

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
