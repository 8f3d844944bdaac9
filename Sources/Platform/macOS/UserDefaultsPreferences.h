#pragma once

#include "Profiles/Preferences.h"

#include <memory>
#include <string>

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
    void setData(const std::string& key, const Data& data) override;

  private:
    struct Defaults;

    std::unique_ptr<Defaults> defaults;
};

} // namespace tervale
