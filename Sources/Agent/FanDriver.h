#pragma once

#include "Profiles/Controller.h"
#include "SMC/SMC.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tervale {

/// Brings the fans to a target. What the controller says counts, not what was written last, so a
/// fan that something else has changed is set right the next time. A fan that fails keeps no other
/// from being driven.
class FanDriver {
  public:
    /// `smc` outlives the object.
    explicit FanDriver(SMC& smc) : smc(smc) {}

    /// Writes a speed only where a fan is not yet on its way to it, and hands the fans back only
    /// while one of them is not automatic. The first error, if any.
    std::optional<std::string> apply(const Target& target);
    /// Hands all fans back, and locks them, whatever state they are in.
    std::optional<std::string> handBack();

  private:
    using Error = std::optional<std::string>;

    Error driveAll(double fraction);
    void drive(std::int64_t index, double fraction);
    Error releaseAll();
    /// Whether a fan is manual or, at first, was unlocked by one who did not lock it again.
    bool anyTaken();
    /// Whether the controller says that every fan is automatic and locked. False if it does not
    /// say.
    bool allReleased();
    /// Throws for a count that no machine has.
    std::int64_t fanCount();

    SMC& smc;
    /// Fans may be under manual control because of this object.
    bool holding = false;
    /// Whether the lock has been looked at.
    bool lockKnown = false;
};

} // namespace tervale
