#include "TervaleWindow/Shell/SystemMetadata.h"

#include "TervaleWindow/Shell/BuildMetadata.h"

#include <utility>

namespace tervale {

SystemMetadata::SystemMetadata(BundleText bundle) : bundleText(std::move(bundle)) {}

std::optional<ApplicationMetadata::Value> SystemMetadata::value(const std::string& key) const {
    if (!bundleText)
        return BuildMetadata().value(key);
    return bundleText(key);
}

} // namespace tervale
