#pragma once

#include "Profiles/Preferences.h"

#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace tervale {

/// Preferences that are forgotten with the object.
class InMemoryPreferences final : public Preferences {
  public:
    std::optional<Data> data(const std::string& key) const override;
    void setData(const std::string& key, const Data& data) override;

  private:
    mutable std::mutex mutex;
    std::map<std::string, Data> values;
};

} // namespace tervale
