#include "Profiles/InMemoryPreferences.h"

#include <utility>

namespace tervale {

std::optional<Preferences::Data> InMemoryPreferences::data(const std::string& key) const {
    const std::lock_guard lock(mutex);
    const auto found = values.find(key);
    if (found == values.end())
        return std::nullopt;
    const Data* data = std::get_if<Data>(&found->second);
    return data ? std::optional(*data) : std::nullopt;
}

bool InMemoryPreferences::contains(const std::string& key) const {
    const std::lock_guard lock(mutex);
    return values.contains(key);
}

std::optional<std::string> InMemoryPreferences::setData(const std::string& key, const Data& data) {
    const std::lock_guard lock(mutex);
    values[key] = data;
    return std::nullopt;
}

bool InMemoryPreferences::keepCopy(const std::string& key, const std::string& copy) {
    const std::lock_guard lock(mutex);
    const auto found = values.find(key);
    return found != values.end() && values.emplace(copy, found->second).second;
}

std::vector<std::string> InMemoryPreferences::keys(const std::string& prefix) const {
    const std::lock_guard lock(mutex);
    std::vector<std::string> found;
    for (auto value = values.lower_bound(prefix);
         value != values.end() && value->first.starts_with(prefix); ++value)
        found.push_back(value->first);
    return found;
}

void InMemoryPreferences::remove(const std::string& key) {
    const std::lock_guard lock(mutex);
    values.erase(key);
}

void InMemoryPreferences::setString(const std::string& key, std::string string) {
    const std::lock_guard lock(mutex);
    values[key] = std::move(string);
}

} // namespace tervale
