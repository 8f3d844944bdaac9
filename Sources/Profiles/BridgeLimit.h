#pragma once

#include "Profiles/Bridge.h"

#include <cstddef>

namespace tervale {

/// The longest text that the bridge carries, in bytes: many times that of a state with more
/// profiles than people make. A longer one is neither sent nor read, so that no notification holds
/// its receivers up.
inline constexpr std::size_t maximumBridgeTextSize = std::size_t{256} * 1024;

/// Whether a state can be published.
bool fitsBridge(const BridgeState& state);

} // namespace tervale
