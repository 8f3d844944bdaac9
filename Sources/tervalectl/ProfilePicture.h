#pragma once

#include "Profiles/Profile.h"
#include "tervalectl/TextStyle.h"

#include <ostream>
#include <span>
#include <string>

namespace tervale {

/// The kind for people, such as "temperature, CPU average".
std::string kindText(const Profile& profile);

/// Prints name, kind and id, and then the curve, drawn and as bars, or the schedule as a table.
/// `profiles` are those that a schedule may name.
void printProfile(std::ostream& out, const Profile& profile, std::span<const Profile> profiles,
                  const TextStyle& style);

} // namespace tervale
