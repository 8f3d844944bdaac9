#pragma once

#include "Profiles/LoadReading.h"
#include "SMC/IORegistry.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tervale {

/// The processor of a simulated Mac, as a service of its registry beside the controller, so that
/// who watches the Mac from another process learns its load. No real machine has a service of this
/// class.
namespace simulatedProcessor {

inline constexpr const char* serviceClass = "TervaleSimulatedProcessor";
/// Asks for the load. The request is empty.
inline constexpr std::uint32_t loadSelector = 1;

/// The response:
///
/// | offset | bytes | meaning                                           |
/// |--------|-------|---------------------------------------------------|
/// | 0      | 8     | percent in use, 0 to 100; double, little-endian   |
/// | 8      | 72    | zero                                              |
IORegistry::Structure encode(double load);
/// Nothing for what is no percentage.
std::optional<double> decode(const IORegistry::Structure& response);

/// Tells the load of the machine that the registry belongs to: of a simulated one its own, nothing
/// while it does not answer; of any other what `host` tells. Looks once, at this call, which it is.
LoadReading loadOf(const std::shared_ptr<IORegistry>& registry, LoadReading host);

} // namespace simulatedProcessor

} // namespace tervale
