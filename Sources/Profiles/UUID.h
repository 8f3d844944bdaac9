#pragma once

#include "JSON/JSONForward.h"

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tervale {

/// A 128-bit identity.
struct UUID {
    std::array<std::uint8_t, 16> bytes{};

    /// A new random one.
    static UUID random();
    /// From the 36-character form, in digits of either case; nothing for any other text.
    static std::optional<UUID> parse(std::string_view text);
    /// The canonical form: 36 characters, upper-case digits.
    std::string text() const;

    // The category is named because the arrays of older libraries have no such operator.
    std::strong_ordering operator<=>(const UUID&) const = default;
};

void write(JSONWriter& json, const UUID& id);
UUID read(const JSONReader& json, Type<UUID>);

} // namespace tervale

template <>
struct std::hash<tervale::UUID> {
    std::size_t operator()(const tervale::UUID& id) const noexcept;
};
