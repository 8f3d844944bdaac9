#pragma once

#include "Profiles/Preferences.h"

#include <map>
#include <mutex>
#include <string>
#include <variant>

namespace tervale {

/// Preferences that last as long as the object, for the simulation and for tests. Like a user's
/// real ones, they can hold values other than data.
class InMemoryPreferences final : public Preferences {
  public:
    std::optional<Data> data(const std::string& key) const override;
    bool contains(const std::string& key) const override;
    void setData(const std::string& key, const Data& data) override;

    void setString(const std::string& key, std::string string);

  private:
    mutable std::mutex mutex;
    std::map<std::string, std::variant<Data, std::string>> values;
};

} // namespace tervale
