#pragma once

#include "SMC/IORegistry.h"

/// The kernel's codes, as IOKit/IOReturn.h has them, that whatever stands in for its registry
/// answers too.
namespace tervale::kernelStatus {

inline constexpr IORegistry::Status success = 0;
inline constexpr auto badArgument = static_cast<IORegistry::Status>(0xe00002c2);
inline constexpr auto unsupported = static_cast<IORegistry::Status>(0xe00002c7);
inline constexpr auto notOpen = static_cast<IORegistry::Status>(0xe00002cd);
inline constexpr auto timedOut = static_cast<IORegistry::Status>(0xe00002d6);
inline constexpr auto notAttached = static_cast<IORegistry::Status>(0xe00002d9);
inline constexpr auto notFound = static_cast<IORegistry::Status>(0xe00002f0);

} // namespace tervale::kernelStatus
