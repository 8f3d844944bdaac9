#include "Base/ClosedRange.h"
#include "Base/Precondition.h"
#include "SMC/SMC.h"

#include <string>

namespace tervale {

namespace {

constexpr const char* unlockKey = "Ftst";

std::string fanKey(std::int64_t index, const char* suffix) {
    return "F" + std::to_string(index) + suffix;
}

void requireCount(std::int64_t count) {
    precondition(count >= 0, "the controller counts a negative number of fans");
}

void requireFan(std::int64_t index, std::int64_t count) {
    if (index < 0 || index >= count)
        throw SMCError("no fan " + std::to_string(index));
}

} // namespace

std::string SMC::modeKey(std::int64_t index) {
    // Controllers differ in the spelling.
    const std::string preferred = fanKey(index, "md");
    return exists(preferred) ? preferred : fanKey(index, "Md");
}

std::optional<std::string> SMC::knownModeKey(std::int64_t index) {
    for (const char* const suffix : {"md", "Md"}) {
        std::string key = fanKey(index, suffix);
        if (has(key))
            return key;
    }
    return std::nullopt;
}

Fan SMC::fan(std::int64_t index) {
    Fan fan;
    fan.index = index;
    fan.actual = read(fanKey(index, "Ac"));
    fan.target = read(fanKey(index, "Tg"));
    fan.min = read(fanKey(index, "Mn"));
    fan.max = read(fanKey(index, "Mx"));
    try {
        fan.manual = read(modeKey(index)) != 0.0;
    } catch (const SMCError&) {
        fan.manual = false;
    }
    return fan;
}

std::vector<Fan> SMC::fans() {
    const std::int64_t count = fanCount();
    requireCount(count);
    // No room is reserved: the count is whatever the controller says.
    std::vector<Fan> all;
    while (std::ssize(all) < count)
        all.push_back(fan(std::ssize(all)));
    return all;
}

void SMC::setSpeed(std::int64_t index, double rpm) {
    const std::int64_t count = fanCount();
    requireCount(count);
    requireFan(index, count);
    const double min = read(fanKey(index, "Mn"));
    const double max = read(fanKey(index, "Mx"));
    if (!ClosedRange{min, max}.contains(rpm))
        throw SMCError("rpm must be " + std::to_string(truncatedToInteger(min)) + "..." +
                       std::to_string(truncatedToInteger(max)));
    try {
        info(unlockKey);
        write(unlockKey, 1.0);
    } catch (const SMCError&) {
        // A controller without the flag, or one that needs no unlocking, still takes the speed.
    }
    write(modeKey(index), 1.0);
    write(fanKey(index, "Tg"), rpm);
}

void SMC::setAuto(const std::optional<std::vector<std::int64_t>>& fans) {
    const std::int64_t count = fanCount();
    if (fans) {
        for (const std::int64_t index : *fans) {
            requireFan(index, count);
            write(modeKey(index), 0.0);
        }
        return;
    }
    requireCount(count);
    for (std::int64_t index = 0; index < count; ++index)
        write(modeKey(index), 0.0);
    if (exists(unlockKey))
        write(unlockKey, 0.0);
}

} // namespace tervale
