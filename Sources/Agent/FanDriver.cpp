#include "Agent/FanDriver.h"

#include "Base/Overloaded.h"
#include "SMC/Believable.h"

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

/// A difference in target that nobody hears, in revolutions per minute.
constexpr double inaudible = 10.0;

constexpr const char* lockKey = "Ftst";

/// Calls `attempt`; the message if it fails.
template <class Attempt>
std::optional<std::string> errorOf(Attempt attempt) {
    try {
        attempt();
        return std::nullopt;
    } catch (const SMCError& error) {
        return error.description;
    }
}

} // namespace

void FanDriver::prepare() {
    const std::int64_t count = fanCount();
    for (std::int64_t fan = 0; fan < count; ++fan)
        if (const auto key = smc.knownModeKey(fan))
            smc.info(*key);
    if (smc.has(lockKey))
        smc.info(lockKey);
}

std::optional<std::string> FanDriver::apply(const Target& target) {
    return std::visit(
        overloaded{[this](const target::Automatic&) { return releaseAll(); },
                   [this](const target::Speed& speed) { return driveAll(speed.fraction); }},
        target);
}

FanDriver::Error FanDriver::driveAll(double fraction) {
    // A speed that is no number is as good as none.
    if (std::isnan(fraction))
        return releaseAll();
    Error first;
    const Error counting = errorOf([&] {
        const std::int64_t count = fanCount();
        for (std::int64_t fan = 0; fan < count; ++fan) {
            const Error error = errorOf([&] { drive(fan, std::clamp(fraction, 0.0, 1.0)); });
            // One that cannot be driven must not stay at whatever speed it was given before.
            if (error && !isAutomatic(fan)) {
                holding = true;
                giveBack(fan);
            }
            first = first ? first : error;
        }
    });
    // Where they were never counted, nobody knows who holds them.
    if (counting && (holding || !lastCount))
        handBack();
    return first ? first : counting;
}

void FanDriver::drive(std::int64_t index, double fraction) {
    const Fan fan = smc.fan(index);
    // Whoever took it left it to this object.
    holding = holding || fan.manual;
    if (!believable::hasLimits(fan))
        throw SMCError("fan " + std::to_string(index) + " has no limits");
    // Rounding must not carry the speed past a limit.
    const double rpm =
        std::max(fan.min, std::min(fan.max, fan.min + (fan.max - fan.min) * fraction));
    const bool atLimit = rpm == fan.min || rpm == fan.max;
    if (fan.manual && std::abs(fan.target - rpm) < (atLimit ? 0.5 : inaudible))
        return;
    // Before it is: what fails half-way may have taken it, or have unlocked the fans.
    holding = true;
    smc.setSpeed(index, rpm);
}

FanDriver::Error FanDriver::releaseAll() {
    Error error = errorOf([this] { holding = holding || anyTaken(); });
    if (error)
        return error;
    return holding ? handBack() : std::nullopt;
}

FanDriver::Error FanDriver::handBack() {
    holding = true;
    const Error error = errorOf([this] {
        // A count that no machine has would keep the controller busy for ever.
        fanCount();
        smc.setAuto();
    });
    // A single failure keeps all that follows it from being written.
    if (error)
        giveBackEach();
    // What the controller says now counts: a write that fails may have had nothing to change, as
    // where nobody may write, and one that succeeds may have changed nothing.
    const bool readsBack = lastCount && writing == AgentStatus::Writing::done;
    if (const Error left = readsBack ? notHandedBack() : error)
        return error ? error : left;
    holding = false;
    lockKnown = true;
    return std::nullopt;
}

void FanDriver::giveBack(std::int64_t index) {
    // Not by way of the count, which may be what fails.
    errorOf([&] { smc.write(smc.modeKey(index), 0.0); });
}

void FanDriver::giveBackEach() {
    for (std::int64_t fan = 0; fan < lastCount.value_or(believable::mostFans); ++fan) {
        // The fans of a controller that never counted them end where it knows no more modes.
        if (!lastCount && !smc.exists(smc.modeKey(fan)))
            break;
        giveBack(fan);
    }
    // A fan that says it is manual needs the lock open to be handed back. One that says nothing
    // does not leave the others unlocked.
    for (std::int64_t fan = 0; fan < lastCount.value_or(0); ++fan) {
        double told = 0;
        errorOf([&] { told = mode(fan); });
        if (told != 0.0)
            return;
    }
    errorOf([this] { smc.write(lockKey, 0.0); });
}

bool FanDriver::anyTaken() {
    const std::int64_t count = fanCount();
    if (!lockKnown) {
        double unlocked = 0;
        // What cannot be read now is looked at again.
        lockKnown = !errorOf([&] { unlocked = smc.read(lockKey); });
        if (unlocked != 0.0)
            return true;
    }
    for (std::int64_t fan = 0; fan < count; ++fan)
        if (!isAutomatic(fan))
            return true;
    return false;
}

FanDriver::Error FanDriver::notHandedBack() {
    return errorOf([this] {
        for (std::int64_t fan = 0; fan < lastCount.value_or(0); ++fan)
            if (mode(fan) != 0.0)
                throw SMCError("fan " + std::to_string(fan) + " is still manual");
        if (smc.has(lockKey) && smc.read(lockKey) != 0.0)
            throw SMCError("the fans are still unlocked");
    });
}

double FanDriver::mode(std::int64_t index) {
    const auto key = smc.knownModeKey(index);
    return key ? smc.read(*key) : 0.0;
}

bool FanDriver::isAutomatic(std::int64_t index) {
    bool automatic = false;
    errorOf([&] { automatic = mode(index) == 0.0; });
    return automatic;
}

std::int64_t FanDriver::fanCount() {
    const std::int64_t count = believable::fanCount(smc);
    // A fan that is held is not gone because it is not counted.
    if (holding && lastCount && count < *lastCount)
        throw SMCError("FNum: " + std::to_string(count) + " of " + std::to_string(*lastCount) +
                       " fans");
    lastCount = count;
    return count;
}

} // namespace tervale
