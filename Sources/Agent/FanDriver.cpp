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

/// A controller that counts more fans than this is not to be believed.
constexpr std::int64_t mostFans = 100;

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
    // From here on this object is the one who unlocks them.
    lockKnown = true;
    Error first;
    const Error counting = errorOf([&] {
        const std::int64_t count = fanCount();
        for (std::int64_t fan = 0; fan < count; ++fan) {
            const Error error = errorOf([&] { drive(fan, std::clamp(fraction, 0.0, 1.0)); });
            // One that cannot be driven must not stay at whatever speed it was given before.
            if (error && holding)
                errorOf([&] { smc.setAuto(std::vector{fan}); });
            first = first ? first : error;
        }
    });
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
    return errorOf([this] {
        // A count that no machine has would keep the controller busy for ever.
        const std::int64_t count = fanCount();
        const Error error = errorOf([this] { smc.setAuto(); });
        if (!error) {
            holding = false;
            return;
        }
        // The first fan that fails keeps the rest from being handed back together.
        for (std::int64_t fan = 0; fan < count; ++fan)
            errorOf([&] { smc.setAuto(std::vector{fan}); });
        // Who may not write to the controller has taken nothing either.
        if (!allReleased())
            throw SMCError(*error);
        holding = false;
    });
}

bool FanDriver::allReleased() {
    bool released = true;
    const Error error = errorOf([&] {
        const std::int64_t count = fanCount();
        for (std::int64_t fan = 0; fan < count; ++fan)
            released = released && smc.read(smc.modeKey(fan)) == 0.0;
        // A controller without a lock has none to turn.
        released = released && (!smc.exists("Ftst") || smc.read("Ftst") == 0.0);
    });
    return released && !error;
}

std::int64_t FanDriver::fanCount() {
    // What is no whole number would stop the process if it were taken for one.
    const double told = smc.read("FNum");
    if (!(told > -1 && told < 1e15))
        throw SMCError("FNum: no number of fans");
    const auto count = static_cast<std::int64_t>(told);
    if (count > mostFans)
        throw SMCError("FNum: " + std::to_string(count) + " fans");
    return count;
}

bool FanDriver::anyTaken() {
    const std::int64_t count = fanCount();
    if (!lockKnown) {
        double unlocked = 0;
        errorOf([&] { unlocked = smc.read("Ftst"); });
        lockKnown = true;
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
