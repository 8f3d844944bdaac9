#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tervale {

/// A folder of the test's own, which only this user can enter.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "tervale-test.XXXXXX";
        path = ::mkdtemp(pattern.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path path;
};

} // namespace tervale
