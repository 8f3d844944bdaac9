#pragma once

#include "Profiles/Profile.h"

#include <cstdint>
#include <span>
#include <string>

namespace tervale {

/// What people read, in UTF-8.
namespace displayText {

/// A temperature in whole degrees, halves away from zero, such as "48 °C". One that is not finite
/// or outside the signed 64-bit range is a programming error.
std::string celsius(double value);

/// A fraction in whole percent, halves away from zero, such as "50%".
std::string percent(double fraction);

/// An action's name; `profiles` are those that it may name.
std::string nameOf(const Action& action, std::span<const Profile> profiles);

/// A fan's name, by its 0-based index, such as "Fan 1".
std::string fan(std::int64_t index);

} // namespace displayText

} // namespace tervale
