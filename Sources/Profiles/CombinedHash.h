#pragma once

#include <cstddef>

namespace tervale {

/// One hash of two values, from theirs.
constexpr std::size_t combinedHash(std::size_t seed, std::size_t value) {
    // The golden ratio in 64 bits spreads small values over the whole word.
    return static_cast<std::size_t>((seed ^ value) * 0x9E3779B97F4A7C15ULL + (seed >> 7));
}

} // namespace tervale
