#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace tervale {

/// Writes the file of GTK's settings into the user's configuration folder.
inline void writeGtkSettings(const std::filesystem::path& configuration, const std::string& lines,
                             const std::string& version = "gtk-3.0") {
    std::filesystem::create_directories(configuration / version);
    std::ofstream(configuration / version / "settings.ini") << "[Settings]\n" << lines << '\n';
}

} // namespace tervale
