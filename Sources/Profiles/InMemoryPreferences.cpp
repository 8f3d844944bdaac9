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

void InMemoryPreferences::setData(const std::string& key, const Data& data) {
    const std::lock_guard lock(mutex);
    values[key] = data;
}

void InMemoryPreferences::setString(const std::string& key, std::string string) {
    const std::lock_guard lock(mutex);
    values[key] = std::move(string);
}

} // namespace tervale
