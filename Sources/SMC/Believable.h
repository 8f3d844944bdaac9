#pragma once

#include "SMC/SMC.h"

#include <cstdint>

namespace tervale {

/// What the controller tells, for who must outlive whatever that is: `SMC::fanCount` and `keyCount`
/// stop the process for what is no number.
namespace believable {

inline constexpr std::int64_t mostFans = 100;
inline constexpr std::int64_t mostKeys = 65536;

/// In revolutions per minute; no fan turns faster.
inline constexpr double fastest = 16000.0;

/// Each throws `SMCError` for a count that no machine has, which would keep the controller busy for
/// ever.
std::int64_t fanCount(SMC& smc);
std::int64_t keyCount(SMC& smc);

/// Whether there are speeds between the fan's limits, and such that a fan can have.
bool hasLimits(const Fan& fan);

} // namespace believable

} // namespace tervale
