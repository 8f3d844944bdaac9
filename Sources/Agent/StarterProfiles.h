#pragma once

#include "Profiles/Profile.h"

#include <vector>

namespace tervale {

/// The profiles that a new user starts with, at least one of each kind. Always the same, ids
/// included.
std::vector<Profile> starterProfiles();

} // namespace tervale
