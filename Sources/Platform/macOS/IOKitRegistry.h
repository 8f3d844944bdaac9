#pragma once

#include "SMC/IORegistry.h"

namespace tervale {

/// The registry of this Mac, through IOKit. Statuses are the kernel's own; an answer that is
/// shorter than a structure counts as a failed call. Whoever uses it releases and closes, once
/// each, what it has found and opened.
class IOKitRegistry final : public IORegistry {
  public:
    std::optional<Service> findService(const std::string& className) override;
    Status open(Service service, std::uint32_t type, Connection& connection) override;
    void release(Service service) override;
    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override;
    void close(Connection connection) override;
};

} // namespace tervale
