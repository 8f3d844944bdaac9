#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tervale {

/// The operating system's registry of kernel services, as far as the controller needs it: find a
/// service, open it, exchange 80-byte structures with it, close it. One implementation a platform;
/// all calls come from one thread at a time.
class IORegistry {
  public:
    using Service = std::uint32_t;
    using Connection = std::uint32_t;
    /// 0 is success; anything else is the system's own code, printed as it is.
    using Status = std::int32_t;
    using Structure = std::array<std::byte, 80>;

    virtual ~IORegistry() = default;

    /// The first service of the class, which the caller releases; nothing if there is none.
    virtual std::optional<Service> findService(const std::string& className) = 0;
    /// Opens a connection of the given type for this process. `connection` is set on success only.
    virtual Status open(Service service, std::uint32_t type, Connection& connection) = 0;
    virtual void release(Service service) = 0;
    /// Sends `request` under `selector` and fills `response`, which is zeroed by the caller.
    virtual Status callStruct(Connection connection, std::uint32_t selector,
                              const Structure& request, Structure& response) = 0;
    virtual void close(Connection connection) = 0;
};

} // namespace tervale
