#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tervale {

// What the spelling of a number in a JSON text comes to.

/// The nearest double; nothing for what is greater than any.
std::optional<double> jsonDouble(std::string_view spelling);

/// The integer of 64 bits that it is, however it is spelled; nothing for another number. Every
/// digit counts, also of those that no double holds.
std::optional<std::int64_t> jsonInteger(std::string_view spelling);

} // namespace tervale
