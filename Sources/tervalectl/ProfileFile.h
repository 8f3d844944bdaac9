#pragma once

#include "Profiles/Profile.h"
#include "tervalectl/Context.h"

#include <string>
#include <vector>

namespace tervale {

/// The profiles in a file, as `profiles export` writes them. Throws `Failure` for what cannot be
/// read and for what are no profiles; problems of a profile are none of its concern.
std::vector<Profile> readProfiles(const std::string& path, Context& context);

} // namespace tervale
