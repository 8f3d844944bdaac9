#pragma once

#include "Profiles/Profile.h"

#include <span>
#include <string>
#include <vector>

namespace tervale {

/// What is wrong with a profile, in sentences for the user; empty when nothing is. `all` is the
/// list in which the profiles that a schedule runs are looked up, this profile included.
std::vector<std::string> problems(const Profile& profile, std::span<const Profile> all);

} // namespace tervale
