#pragma once

#include "Profiles/Preferences.h"

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tervale {

/// Preferences that last as long as the object, for the simulation and for tests. Like a user's
/// real ones, they can hold values other than data.
class InMemoryPreferences final : public Preferences {
  public:
    std::optional<Data> data(const std::string& key) const override;
    bool contains(const std::string& key) const override;
    std::optional<std::string> setData(const std::string& key, const Data& data) override;
    bool keepCopy(const std::string& key, const std::string& copy) override;
    std::vector<std::string> keys(const std::string& prefix) const override;
    void remove(const std::string& key) override;

    void setString(const std::string& key, std::string string);

  private:
    mutable std::mutex mutex;
    std::map<std::string, std::variant<Data, std::string>> values;
};

} // namespace tervale
