#pragma once

#include "Profiles/Preferences.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// Preferences in the user's defaults, under a domain of their own; the system makes them last.
/// What was stored as text, a number or a list reads as absent. From any thread and process.
class UserDefaultsPreferences final : public Preferences {
  public:
    explicit UserDefaultsPreferences(const std::string& domain);
    ~UserDefaultsPreferences() override;
    UserDefaultsPreferences(const UserDefaultsPreferences&) = delete;
    UserDefaultsPreferences& operator=(const UserDefaultsPreferences&) = delete;

    std::optional<Data> data(const std::string& key) const override;
    bool contains(const std::string& key) const override;
    std::optional<std::string> setData(const std::string& key, const Data& data) override;
    bool keepCopy(const std::string& key, const std::string& copy) override;
    std::vector<std::string> keys(const std::string& prefix) const override;
    void remove(const std::string& key) override;

  private:
    struct Defaults;

    std::unique_ptr<Defaults> defaults;
};

} // namespace tervale
