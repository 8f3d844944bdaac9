#pragma once

#include "Profiles/Clock.h"
#include "Profiles/Preferences.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tervale::unreadableProfiles {

/// How many are kept, the latest.
constexpr std::size_t most = 3;

/// Keeps what lies under the key of the profiles beside it, before another list takes its place,
/// and lets go of the oldest kept before. The key it is kept under, which ends with the date;
/// nothing if it cannot be kept.
std::optional<std::string> keep(Preferences& preferences, Date now);

} // namespace tervale::unreadableProfiles
