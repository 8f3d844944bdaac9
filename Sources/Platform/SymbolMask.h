#pragma once

#include <cstdint>
#include <vector>

namespace tervale {

/// A symbol without its colour: how much of each pixel it covers, 0 to 255, row by row from the
/// top, in a square.
struct SymbolMask {
    /// In pixels.
    int side = 0;
    /// As many as there are pixels.
    std::vector<std::uint8_t> coverage{};
};

} // namespace tervale
