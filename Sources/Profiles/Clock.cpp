#include "Profiles/Clock.h"

#include <chrono>
#include <ctime>

namespace tervale {

Date SystemClock::now() const {
    const std::chrono::duration<double> sinceUnixEpoch =
        std::chrono::system_clock::now().time_since_epoch();
    return {sinceUnixEpoch.count() - Date::referenceSinceUnixEpoch};
}

int SystemClock::minuteOfDay() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_hour * 60 + local.tm_min;
}

} // namespace tervale
