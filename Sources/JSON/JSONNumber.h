#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tervale {

// What the spelling of a number in a JSON text comes to.

/// The nearest double; nothing for what is greater than any.
std::optional<double> jsonDouble(std::string_view spelling);

/// The value as a 64-bit integer, in any notation; nothing if it is not one. Every digit counts,
/// also beyond the precision of a double.
std::optional<std::int64_t> jsonInteger(std::string_view spelling);

} // namespace tervale
