#pragma once

#include <cstdint>
#include <string>

namespace tervale {

/// A colour in sRGB, each component from 0 to 1.
struct SRGB {
    double red = 0;
    double green = 0;
    double blue = 0;

    /// As 0xrrggbb.
    std::uint32_t number() const;
    /// Such as "#1a6ef0".
    std::string hex() const;
    bool operator==(const SRGB&) const = default;
};

/// The colours of everything that is drawn, on screen, into a file, and in a terminal.
namespace themeColors {

inline constexpr SRGB accent{0.1, 0.43, 0.94};

/// From blue at 30 °C over teal and amber to red at 90 °C; the end colours outside. NaN is red.
SRGB thermal(double celsius);

/// What stands on light or on dark ground; colours as 0xrrggbb.
struct Ground {
    std::uint32_t window = 0;
    std::uint32_t card = 0;
    std::uint32_t label = 0;
    /// The accent colour as text and thin lines.
    std::uint32_t accentLabel = 0;
    std::uint32_t warning = 0;
    /// How strongly the label's colour shows in lesser texts, in grooves, and in separators.
    float secondary = 0;
    float quaternary = 0;
    float line = 0;
};
inline constexpr Ground light{.window = 0xf4f4f6,
                              .card = 0xffffff,
                              .label = 0x1d1d1f,
                              .accentLabel = 0x1a6ef0,
                              .warning = 0xd9730d,
                              .secondary = 0.59f,
                              .quaternary = 0.102f,
                              .line = 0.09f};
inline constexpr Ground dark{.window = 0x1e1e20,
                             .card = 0x2a2a2d,
                             .label = 0xf5f5f7,
                             .accentLabel = 0x5b9bff,
                             .warning = 0xff9f43,
                             .secondary = 0.587f,
                             .quaternary = 0.126f,
                             .line = 0.084f};

} // namespace themeColors

} // namespace tervale
