#include "TervaleWindow/Shell/BuildMetadata.h"

#include <tervale/Version.h>

namespace tervale {

std::optional<ApplicationMetadata::Value> BuildMetadata::value(const std::string& key) const {
    if (key == "CFBundleShortVersionString")
        return version::number;
    if (key == "CFBundleVersion")
        return version::build;
    return std::nullopt;
}

} // namespace tervale
