#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace tervale {

/// Random numbers that are the same on every platform for the same seed. The standard's engine is
/// portable, its distributions are not.
class RandomSource {
  public:
    explicit RandomSource(std::uint64_t seed) : engine(seed) {}

    /// From 0 to below 1.
    double uniform() { return static_cast<double>(engine() >> 11U) * 0x1p-53; }
    double between(double lower, double upper) { return lower + (upper - lower) * uniform(); }
    /// Around 0, most often near it, never further away than `width`.
    double around0(double width) {
        const double first = uniform();
        return (first - uniform()) * width;
    }
    /// From 0 to below `count`.
    std::size_t below(std::size_t count) {
        return static_cast<std::size_t>(uniform() * static_cast<double>(count));
    }

  private:
    std::mt19937_64 engine;
};

} // namespace tervale
