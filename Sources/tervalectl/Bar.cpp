#include "tervalectl/Bar.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tervale {

std::string bar::text(double fraction) {
    constexpr std::size_t parts = 8;
    constexpr std::array<const char*, parts> partial{"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
    if (!(fraction > 0))
        return {};
    const auto eighths = static_cast<std::size_t>(
        std::lround(std::min(fraction, 1.0) * static_cast<double>(length * parts)));
    std::string text;
    for (std::size_t i = 0; i < eighths / parts; ++i)
        text += "█";
    return text + partial[eighths % parts];
}

} // namespace tervale
