#include "Simulation/InMemoryPreferences.h"

namespace tervale {

std::optional<Preferences::Data> InMemoryPreferences::data(const std::string& key) const {
    const std::scoped_lock lock(mutex);
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

void InMemoryPreferences::setData(const std::string& key, const Data& data) {
    const std::scoped_lock lock(mutex);
    values[key] = data;
}

} // namespace tervale
