#pragma once

#include "TervaleWindow/Settings/ApplicationMetadata.h"

namespace tervale {

/// The version and the build number that the build was given.
class BuildMetadata final : public ApplicationMetadata {
  public:
    std::optional<Value> value(const std::string& key) const override;
};

} // namespace tervale
