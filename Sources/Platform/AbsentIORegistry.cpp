#include "Platform/AbsentIORegistry.h"

namespace tervale {

namespace {
constexpr IORegistry::Status noDevice = -1;
}

std::optional<IORegistry::Service> AbsentIORegistry::findService(const std::string&) {
    return std::nullopt;
}

IORegistry::Status AbsentIORegistry::open(Service, std::uint32_t, Connection&) {
    return noDevice;
}

void AbsentIORegistry::release(Service) {}

IORegistry::Status AbsentIORegistry::callStruct(Connection, std::uint32_t, const Structure&,
                                                Structure&) {
    return noDevice;
}

void AbsentIORegistry::close(Connection) {}

} // namespace tervale
