#pragma once

#include "SMC/IORegistry.h"

#include <optional>
#include <string>

namespace tervale {

/// A registry whose controller need not be there yet: whoever opens it finds it open, and each call
/// fails until `reach` has reached the other registry's. It serves one connection.
class LateRegistry final : public IORegistry {
  public:
    /// `registry` outlives the object.
    explicit LateRegistry(IORegistry& registry) : registry(registry) {}
    ~LateRegistry() override;
    LateRegistry(const LateRegistry&) = delete;
    LateRegistry& operator=(const LateRegistry&) = delete;

    /// Opens the controller, unless it is open. Why it cannot be; nothing once it is.
    std::optional<std::string> reach();

    std::optional<Service> findService(const std::string& className) override;
    Status open(Service service, std::uint32_t type, Connection& connection) override;
    void release(Service service) override;
    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override;
    void close(Connection connection) override;

  private:
    IORegistry& registry;
    std::optional<Connection> reached;
};

} // namespace tervale
