#pragma once

#include "SMC/IORegistry.h"

#include <cstdint>
#include <variant>

namespace tervale {

/// What can be made to go wrong with one key of the simulated controller.
namespace fault {
/// The controller answers with this result code.
struct Refused {
    std::uint8_t result = 132;
};
/// The controller describes the key, but answers reads and writes with this result code.
struct RefusedValue {
    std::uint8_t result = 133;
};
/// The kernel ends the call with this status.
struct KernelError {
    IORegistry::Status status = 0;
};
/// A value that is no temperature, as of a sensor that has come off.
struct DroppedOut {};
/// The value that it has when the fault is injected, for as long as the fault lasts.
struct Stuck {};
} // namespace fault

using Fault = std::variant<fault::Refused, fault::RefusedValue, fault::KernelError,
                           fault::DroppedOut, fault::Stuck>;

/// What can be made of the controller's kernel service as a whole.
namespace service {
struct Present {};
struct Absent {};
/// It is there, but opening it ends with this status.
struct Refusing {
    IORegistry::Status status = 0;
};
} // namespace service

using ServiceState = std::variant<service::Present, service::Absent, service::Refusing>;

} // namespace tervale
