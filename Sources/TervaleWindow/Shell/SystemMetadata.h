#pragma once

#include "TervaleWindow/Settings/ApplicationMetadata.h"

#include <functional>

namespace tervale {

/// What the program's bundle says of it; for a program that lies in no bundle, what the build was
/// given.
class SystemMetadata final : public ApplicationMetadata {
  public:
    /// Tells the text under a key; null where there is no bundle.
    using BundleText = std::function<std::optional<std::string>(const std::string& key)>;

    explicit SystemMetadata(BundleText bundleText);

    std::optional<Value> value(const std::string& key) const override;

  private:
    BundleText bundleText;
};

} // namespace tervale
