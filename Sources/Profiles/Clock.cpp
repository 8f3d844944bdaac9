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

} // namespace tervale
