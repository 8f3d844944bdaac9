#include "Agent/UnreadableProfiles.h"

#include "Profiles/ProfileStore.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

namespace tervale::unreadableProfiles {

namespace {

constexpr const char* prefix = "profiles.unreadable-";

/// In UTC, to the second, as "2001-01-01T000000Z". The order of the texts is that of the dates.
std::string textOf(Date date) {
    using namespace std::chrono;
    const double sinceEpoch = date.sinceReference + Date::referenceSinceUnixEpoch;
    const sys_seconds time{seconds(std::llround(std::floor(sinceEpoch)))};
    const year_month_day day(floor<days>(time));
    const hh_mm_ss hour(time - floor<days>(time));
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d%02d%02dZ",
                  static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                  static_cast<unsigned>(day.day()), static_cast<int>(hour.hours().count()),
                  static_cast<int>(hour.minutes().count()),
                  static_cast<int>(hour.seconds().count()));
    return text.data();
}

} // namespace

std::optional<std::string> keep(Preferences& preferences, Date now) {
    std::string key = prefix + textOf(now);
    // Of several within a second each has a name of its own.
    for (int later = 1; preferences.contains(key) && later < 100; ++later)
        key = prefix + textOf(now + later);
    if (!preferences.keepCopy(ProfileStore::profilesKey, key))
        return std::nullopt;
    std::vector<std::string> kept = preferences.keys(prefix);
    // With a clock that was set back, the newest need not be the last.
    std::erase(kept, key);
    for (std::size_t excess = 0; excess + most <= kept.size(); ++excess)
        preferences.remove(kept[excess]);
    return key;
}

} // namespace tervale::unreadableProfiles
