#include "Agent/SensorSearch.h"

#include "SMC/Believable.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace tervale {

bool SensorSearch::turn() {
    // A count costs a single call, so that it may be asked for at each turn.
    if (!counted && !count())
        return false;
    if (open.empty() || turnsToWait-- > 0)
        return false;
    if (unasked == 0) {
        openBefore = open.size();
        unasked = openBefore;
    }
    const std::size_t foundBefore = found.size();
    for (int failures = 0; unasked > 0 && failures < mostFailures; --unasked) {
        Key key = std::move(open.front());
        open.pop_front();
        if (settle(key))
            continue;
        open.push_back(std::move(key));
        ++failures;
    }
    // Whether it is worth while to ask again soon shows once each key was asked for.
    if (unasked == 0)
        pause = open.size() < openBefore ? 1 : std::min(2 * pause, longestPause);
    turnsToWait = unasked == 0 ? pause - 1 : 0;
    return found.size() > foundBefore;
}

bool SensorSearch::count() {
    try {
        const std::int64_t keys = believable::keyCount(smc);
        for (std::int64_t index = 0; index < keys; ++index)
            open.emplace_back(index);
        counted = true;
    } catch (const SMCError&) {
        // Without a count of keys there are no sensors yet.
    }
    return counted;
}

bool SensorSearch::settle(Key& key) {
    if (const auto* index = std::get_if<std::int64_t>(&key)) {
        try {
            key = smc.key(*index);
        } catch (const SMCError&) {
            return false;
        }
    }
    return settleName(std::get<std::string>(key));
}

bool SensorSearch::settleName(const std::string& name) {
    const auto group = SensorGroup::of(name);
    if (!group)
        return true;
    try {
        if (smc.info(name).type == "flt ")
            found.push_back({name, *group});
        return true;
    } catch (const SMCError&) {
        // That there is no such key, or none that can be read, is an answer too.
    }
    try {
        smc.has(name);
        return true;
    } catch (const SMCError&) {
        return false;
    }
}

} // namespace tervale
