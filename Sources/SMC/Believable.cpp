#include "SMC/Believable.h"

#include <string>

namespace tervale {

namespace {

std::int64_t countOf(SMC& smc, const std::string& key, const std::string& things,
                     std::int64_t most) {
    // What is no whole number would stop the process if it were taken for one.
    const double told = smc.read(key);
    if (!(told > -1 && told < 1e15))
        throw SMCError(key + ": no number of " + things);
    const auto count = static_cast<std::int64_t>(told);
    if (count > most)
        throw SMCError(key + ": " + std::to_string(count) + " " + things);
    return count;
}

} // namespace

std::int64_t believable::fanCount(SMC& smc) {
    return countOf(smc, "FNum", "fans", mostFans);
}

std::int64_t believable::keyCount(SMC& smc) {
    return countOf(smc, "#KEY", "keys", mostKeys);
}

bool believable::hasLimits(const Fan& fan) {
    // Not a number is refused as well.
    return fan.min >= 0 && fan.min <= fan.max && fan.max <= fastest;
}

} // namespace tervale
