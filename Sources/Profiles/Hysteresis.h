#pragma once

#include <optional>

namespace tervale {

/// A one-sided dead band: rising readings pass at once, falling ones are held until they leave the
/// band, and from there on are followed one band above.
class Hysteresis {
  public:
    /// `band` in the unit of the readings.
    explicit Hysteresis(double band) : band(band) {}

    double filter(double x);

  private:
    double band;
    std::optional<double> effective;
};

} // namespace tervale
