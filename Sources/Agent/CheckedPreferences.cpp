#include "Agent/CheckedPreferences.h"

namespace tervale {

std::optional<std::string> CheckedPreferences::setData(const std::string& key, const Data& data) {
    // What is there after a failure may be gone after a power cut.
    if (!waiting.contains(key) && stored.data(key) == data)
        return std::nullopt;
    auto why = write(key, data);
    if (why) {
        waiting.insert_or_assign(key, data);
        lastFailure = why;
        nextAttempt = clock.now() + interval;
    } else {
        forget(key);
    }
    return why;
}

bool CheckedPreferences::keepCopy(const std::string& key, const std::string& copy) {
    return stored.keepCopy(key, copy);
}

std::vector<std::string> CheckedPreferences::keys(const std::string& prefix) const {
    return stored.keys(prefix);
}

void CheckedPreferences::remove(const std::string& key) {
    stored.remove(key);
}

void CheckedPreferences::retry() {
    // A clock that was set back must not put the attempt off.
    if (waiting.empty() || (clock.now() < nextAttempt && nextAttempt - clock.now() <= interval))
        return;
    nextAttempt = clock.now() + interval;
    for (auto value = waiting.begin(); value != waiting.end();) {
        const auto why = write(value->first, value->second);
        if (why)
            lastFailure = why;
        value = why ? std::next(value) : waiting.erase(value);
    }
    settle();
}

void CheckedPreferences::forget(const std::string& key) {
    waiting.erase(key);
    settle();
}

std::optional<std::string> CheckedPreferences::write(const std::string& key, const Data& data) {
    if (auto why = stored.setData(key, data))
        return why;
    if (stored.data(key) != data)
        return "it does not read back";
    return std::nullopt;
}

void CheckedPreferences::settle() {
    if (waiting.empty())
        lastFailure.reset();
}

} // namespace tervale
