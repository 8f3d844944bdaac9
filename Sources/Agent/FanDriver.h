#pragma once

#include "Profiles/Controller.h"
#include "SMC/SMC.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tervale {

/// Brings the fans to a target. What the controller says counts, not what was written last, so a
/// fan that something else has changed is set right the next time. A fan that fails keeps no other
/// from being driven, and a count of fans that fails keeps none from being handed back.
class FanDriver {
  public:
    /// A controller that counts more fans than this is not to be believed.
    static constexpr std::int64_t mostFans = 100;

    /// `smc` outlives the object.
    explicit FanDriver(SMC& smc) : smc(smc) {}

    /// Counts the fans and has the controller describe every key that handing back needs, so that
    /// it takes no time later. Throws `SMCError` where they cannot be counted.
    void prepare();
    /// Writes a speed only where a fan is not yet on its way to it, and hands the fans back only
    /// while one of them is not automatic. The first error, if any.
    std::optional<std::string> apply(const Target& target);
    /// Hands all fans back, and locks them, whatever state they are in. Nothing once every fan that
    /// has a mode says that it is automatic, and the lock that it is turned.
    std::optional<std::string> handBack();
    /// Whether fans may be under manual control because of this object.
    bool holds() const { return holding; }

  private:
    using Error = std::optional<std::string>;
    /// What the controller says of the fans that have a mode.
    struct Modes {
        bool allTold = false;
        bool anyManual = false;

        bool operator==(const Modes&) const = default;
    };

    Error driveAll(double fraction);
    void drive(std::int64_t index, double fraction);
    Error releaseAll();
    /// Hands a fan back if it can be.
    void giveBack(std::int64_t index);
    /// Hands every fan back that can be, whether they can be counted now or not.
    void giveBackEach();
    /// Whether a fan is manual or, at first, was unlocked by one who did not lock it again.
    bool anyTaken();
    Modes modes();
    bool isLocked();
    /// Throws for a count that no machine has.
    std::int64_t fanCount();

    SMC& smc;
    bool holding = false;
    /// Whether the lock could be looked at.
    bool lockKnown = false;
    /// What the controller said last.
    std::optional<std::int64_t> lastCount;
};

} // namespace tervale
