#pragma once

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <thread>

namespace tervale {

/// A folder of the test's own, which only this user can enter.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "tervale-test.XXXXXX";
        path = ::mkdtemp(pattern.data());
    }
    ~TemporaryFolder() {
        // A process that is just ending may still put something there.
        for (int attempt = 0; attempt < 200; ++attempt) {
            std::error_code error;
            std::filesystem::remove_all(path, error);
            if (!error)
                return;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path path;
};

} // namespace tervale
