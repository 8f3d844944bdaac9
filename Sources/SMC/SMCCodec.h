#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tervale {

/// Translates four-character codes and the controller's raw values. Stateless.
///
/// | type   | bytes | decoded                               | encoded                        |
/// |--------|-------|---------------------------------------|--------------------------------|
/// | "flt " | 4     | little-endian single precision        | the same                       |
/// | "fpe2" | 2     | big-endian unsigned, 2 fraction bits  | truncated, clamped to 16 bits  |
/// | "ui8 " | any   | the first byte, 0 without one         | truncated, clamped to 8 bits   |
/// | "flag" | any   | as "ui8 "                             | as "ui8 "                      |
/// | "ui16" | 2     | big-endian unsigned                   | refused                        |
/// | "ui32" | 4     | big-endian unsigned                   | refused                        |
struct SMCCodec {
    /// The UTF-8 bytes of `text`, the first one most significant. Of a longer text the last four
    /// count.
    static std::uint32_t fourCC(std::string_view text);
    /// The four characters of `code`, zeros included; "?" when one is not ASCII.
    static std::string fourCCString(std::uint32_t code);

    /// The number in `bytes`. Throws `SMCError` for an unknown type or a wrong count of bytes.
    static double decode(std::string_view type, std::span<const std::byte> bytes);
    /// The bytes of `value`. Throws `SMCError` for a type that cannot be written. An integer type
    /// with a value outside the signed 64-bit range is a programming error.
    static std::vector<std::byte> encode(std::string_view type, double value);
};

} // namespace tervale
