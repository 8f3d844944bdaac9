#include "Agent/FanDriver.h"

#include "Base/Overloaded.h"

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

/// A difference in target that nobody hears, in revolutions per minute.
constexpr double inaudible = 10.0;

/// No fan turns faster, in revolutions per minute; limits beyond are not to be believed.
constexpr double fastest = 16000.0;

bool areLimits(double min, double max) {
    // Not a number is refused as well.
    return min >= 0 && min <= max && max <= fastest;
}

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
        smc.exists(smc.modeKey(fan));
    smc.exists(lockKey);
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
            if (error && holding)
                giveBack(fan);
            first = first ? first : error;
        }
    });
    if (counting && holding)
        giveBackEach();
    return first ? first : counting;
}

void FanDriver::drive(std::int64_t index, double fraction) {
    const Fan fan = smc.fan(index);
    if (!areLimits(fan.min, fan.max))
        throw SMCError("fan " + std::to_string(index) + " has no limits");
    // Rounding must not carry the speed past a limit.
    const double rpm =
        std::max(fan.min, std::min(fan.max, fan.min + (fan.max - fan.min) * fraction));
    const bool atLimit = rpm == fan.min || rpm == fan.max;
    if (fan.manual && std::abs(fan.target - rpm) < (atLimit ? 0.5 : inaudible))
        return;
    // A fan without a mode can never be taken, and so need not be given back.
    holding = holding || smc.exists(smc.modeKey(index));
    smc.setSpeed(index, rpm);
}

FanDriver::Error FanDriver::releaseAll() {
    bool taken = holding;
    Error error = errorOf([&] { taken = taken || anyTaken(); });
    if (error)
        return error;
    return taken ? handBack() : std::nullopt;
}

FanDriver::Error FanDriver::handBack() {
    Error error = errorOf([this] {
        // A count that no machine has would keep the controller busy for ever.
        fanCount();
        smc.setAuto();
    });
    // A single failure keeps all that follows it from being written.
    if (error)
        giveBackEach();
    // Who may not write to the controller has taken nothing either.
    if (error && !(modes() == Modes{.allTold = true, .anyManual = false} && isLocked()))
        return error;
    holding = false;
    lockKnown = true;
    return std::nullopt;
}

void FanDriver::giveBack(std::int64_t index) {
    // Not by way of the count, which may be what fails.
    errorOf([&] { smc.write(smc.modeKey(index), 0.0); });
}

void FanDriver::giveBackEach() {
    for (std::int64_t fan = 0; fan < lastCount.value_or(mostFans); ++fan) {
        // The fans of a controller that never counted them end where it knows no more modes.
        if (!lastCount && !smc.exists(smc.modeKey(fan)))
            break;
        giveBack(fan);
    }
    // One fan that refuses for good does not leave the others unlocked.
    if (!modes().anyManual && smc.exists(lockKey))
        errorOf([this] { smc.write(lockKey, 0.0); });
}

FanDriver::Modes FanDriver::modes() {
    const bool counted = !errorOf([this] { fanCount(); });
    Modes modes{.allTold = lastCount.has_value(), .anyManual = false};
    for (std::int64_t fan = 0; fan < lastCount.value_or(0); ++fan) {
        const std::string key = smc.modeKey(fan);
        if (!smc.exists(key)) {
            // A controller that does not even count may have modes of which it says nothing.
            modes.allTold = modes.allTold && counted;
            continue;
        }
        double mode = 0;
        if (errorOf([&] { mode = smc.read(key); }))
            modes.allTold = false;
        modes.anyManual = modes.anyManual || mode != 0.0;
    }
    return modes;
}

bool FanDriver::isLocked() {
    double unlocked = 1;
    // A controller without a lock has none to turn.
    return !smc.exists(lockKey) ||
           (!errorOf([&] { unlocked = smc.read(lockKey); }) && unlocked == 0.0);
}

std::int64_t FanDriver::fanCount() {
    // What is no whole number would stop the process if it were taken for one.
    const double told = smc.read("FNum");
    if (!(told > -1 && told < 1e15))
        throw SMCError("FNum: no number of fans");
    const auto count = static_cast<std::int64_t>(told);
    if (count > mostFans)
        throw SMCError("FNum: " + std::to_string(count) + " fans");
    lastCount = count;
    return count;
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
    for (std::int64_t fan = 0; fan < count; ++fan) {
        double mode = 0;
        // A fan without a mode is never manual.
        errorOf([&] { mode = smc.read(smc.modeKey(fan)); });
        if (mode != 0.0)
            return true;
    }
    return false;
}

} // namespace tervale
