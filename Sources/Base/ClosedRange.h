#pragma once

namespace tervale {

/// The numbers from `lower` to `upper`, both ends included. NaN is in no range.
struct ClosedRange {
    double lower = 0;
    double upper = 0;

    constexpr bool contains(double value) const { return lower <= value && value <= upper; }
    constexpr double span() const { return upper - lower; }

    bool operator==(const ClosedRange&) const = default;
};

} // namespace tervale
