#pragma once

#include "TervaleWindow/Settings/ApplicationMetadata.h"

#include <QString>

namespace tervale {

/// The short version and the build, such as "1.2 (34)"; "?" for either that is no text.
QString versionText(const ApplicationMetadata& metadata);

} // namespace tervale
