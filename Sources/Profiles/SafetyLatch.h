#pragma once

#include <optional>

namespace tervale {

/// Engages at `on` and holds until a reading below `off` arrives. Degrees Celsius.
class SafetyLatch {
  public:
    static constexpr double on = 95.0;
    static constexpr double off = 85.0;

    bool engaged() const { return isEngaged; }
    /// Takes the hottest reading, or nothing when there is none, and returns whether it is engaged.
    bool update(std::optional<double> hottest);

  private:
    bool isEngaged = false;
};

} // namespace tervale
