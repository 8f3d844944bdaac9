#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tervale {

/// Quantities as people type them, the same in every locale.
namespace quantities {

/// Digits, with a fraction after a point or without one.
std::optional<double> decimal(std::string_view text);

/// Digits alone.
std::optional<std::int64_t> whole(std::string_view text);

/// A number from 0 to 100 followed by "%", as a fraction.
std::optional<double> percentage(std::string_view text);

/// A length of time above 0 such as "90s", "15m", "1h30m", or a number of seconds; in seconds.
std::optional<double> duration(std::string_view text);

} // namespace quantities

} // namespace tervale
