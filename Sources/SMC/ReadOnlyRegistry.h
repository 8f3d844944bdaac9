#pragma once

#include "SMC/DelegatingRegistry.h"

namespace tervale {

/// Another registry, to whose controller nothing can be written: a write is answered as if it had
/// been done.
class ReadOnlyRegistry final : public DelegatingRegistry {
  public:
    using DelegatingRegistry::DelegatingRegistry;

    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override;
};

} // namespace tervale
