#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tervale {

// Numbers as people type them, the same in every locale. Each returns nothing for any other text.

/// Digits, with a fraction after a point or without one.
std::optional<double> parseDecimal(std::string_view text);

/// Digits alone.
std::optional<std::int64_t> parseWholeNumber(std::string_view text);

/// A number from 0 to 100 followed by "%", as a fraction.
std::optional<double> parsePercentage(std::string_view text);

/// A time above 0 such as "90s", "15m", "1h30m", or a number of seconds; in seconds.
std::optional<double> parseDuration(std::string_view text);

} // namespace tervale
