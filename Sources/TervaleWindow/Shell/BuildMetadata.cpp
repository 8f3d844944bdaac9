#include "TervaleWindow/Shell/BuildMetadata.h"

namespace tervale {

std::optional<ApplicationMetadata::Value> BuildMetadata::value(const std::string& key) const {
    if (key == "CFBundleShortVersionString")
        return TERVALE_VERSION;
    if (key == "CFBundleVersion")
        return TERVALE_BUILD;
    return std::nullopt;
}

} // namespace tervale
