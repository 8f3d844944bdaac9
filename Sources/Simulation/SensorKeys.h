#pragma once

#include "SMC/Sensors.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tervale {

/// Two digits of base 62 (0 to 9, A to Z, a to z), of which controllers make their keys.
std::string base62(std::size_t number);

/// The key of a group's sensor with this 0-based position, made the way that controllers name
/// theirs. No two are equal.
std::string sensorKey(SensorGroup group, std::size_t position);

} // namespace tervale
