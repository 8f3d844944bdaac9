#pragma once

#include "Profiles/Preferences.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// The folder that holds the user's configuration: $XDG_CONFIG_HOME, or ~/.config where that is not
/// set to an absolute path.
std::filesystem::path configurationFolder();

/// Preferences as one file a key in a folder of their own, readable by the user alone. A file is
/// replaced in one step, so that after a power cut it holds the old value or the new one. Of a
/// link, the target is replaced. A value that cannot be read counts as absent. From any thread and
/// process. A later write removes what an interrupted one leaves.
///
/// A key is a file's name: 1 to 200 ASCII letters, digits, '.', '_' and '-', not beginning with a
/// dot. Values of more than 16 MiB are neither read nor written.
class FilePreferences final : public Preferences {
  public:
    /// The folder is created with the first value.
    explicit FilePreferences(std::filesystem::path folder);

    std::optional<Data> data(const std::string& key) const override;
    bool contains(const std::string& key) const override;
    std::optional<std::string> setData(const std::string& key, const Data& data) override;
    bool keepCopy(const std::string& key, const std::string& copy) override;
    std::vector<std::string> keys(const std::string& prefix) const override;
    void remove(const std::string& key) override;

  private:
    std::filesystem::path folder;
};

} // namespace tervale
