#pragma once

#include "Agent/AgentStatus.h"
#include "Profiles/Controller.h"
#include "SMC/SMC.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tervale {

/// Brings the fans to a target. What the controller says counts, not what was written last, so a
/// fan that something else has changed is set right the next time. A fan that fails keeps no other
/// from being driven, and a count of fans that fails keeps none of those that were counted before
/// from being handed back.
class FanDriver {
  public:
    /// `smc` outlives the object. What is only pretended to be written does not read back.
    explicit FanDriver(SMC& smc, AgentStatus::Writing writing = AgentStatus::Writing::done)
        : smc(smc),
          writing(writing) {}

    /// Counts the fans and has the controller describe every key that handing back needs, so that
    /// it takes no time later. Throws `SMCError` where the controller does not tell all of that.
    void prepare();
    /// Writes a speed only where a fan is not yet on its way to it, and hands the fans back only
    /// while one of them is not automatic. A fan that cannot be driven is handed back. The first
    /// error, if any.
    std::optional<std::string> apply(const Target& target);
    /// Hands all fans back, and locks them, whatever state they are in. Nothing only once the
    /// controller says afterwards, of each fan that it counted last, that it is automatic or has no
    /// mode, and of the lock that it is turned or that there is none. What it does not tell is an
    /// error.
    std::optional<std::string> handBack();
    /// Whether fans may be under manual control: until a hand-back succeeds, all are held once one
    /// was taken, or was found manual, whoever took it, or did not tell its mode.
    bool holds() const { return holding; }

  private:
    using Error = std::optional<std::string>;

    Error driveAll(double fraction);
    void drive(std::int64_t index, double fraction);
    Error releaseAll();
    /// Hands a fan back if it can be.
    void giveBack(std::int64_t index);
    /// Hands every fan back that can be, whether they can be counted now or not.
    void giveBackEach();
    /// Whether a fan may be manual or, at first, was unlocked by one who did not lock it again.
    bool anyTaken();
    /// Why not all fans are known to be handed back; nothing if they are.
    Error notHandedBack();
    /// 0 for a fan without a mode, which can never be taken. Throws where the controller does not
    /// tell.
    double mode(std::int64_t index);
    /// By the controller's own word.
    bool isAutomatic(std::int64_t index);
    /// Throws for a count that no machine has and, while fans are held, for one that leaves some of
    /// them out.
    std::int64_t fanCount();

    SMC& smc;
    AgentStatus::Writing writing;
    bool holding = false;
    /// Whether the lock could be looked at.
    bool lockKnown = false;
    /// What the controller said last.
    std::optional<std::int64_t> lastCount;
};

} // namespace tervale
