#include "Profiles/Clock.h"

#include "JSON/JSONReader.h"
#include "JSON/JSONWriter.h"

#include <chrono>
#include <ctime>

namespace tervale {

void write(JSONWriter& json, Date date) {
    json.number(date.sinceReference);
}

Date read(const JSONReader& json, Type<Date>) {
    return {json.number()};
}

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

double SystemClock::steady() const {
#ifdef CLOCK_BOOTTIME
    constexpr clockid_t clock = CLOCK_BOOTTIME;
#else
    // Where there is no other it counts the sleep as well.
    constexpr clockid_t clock = CLOCK_MONOTONIC;
#endif
    timespec now{};
    clock_gettime(clock, &now);
    constexpr double nanosecond = 1e-9;
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * nanosecond;
}

} // namespace tervale
