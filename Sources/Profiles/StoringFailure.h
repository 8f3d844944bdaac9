#pragma once

#include "Profiles/Bridge.h"

#include <string>

namespace tervale {

/// The sentence of the agent's status which tells that something could not be stored.
std::string storingFailure(const std::string& reason);

/// Whether the state's status holds that sentence.
bool tellsStoringFailure(const BridgeState& state);

} // namespace tervale
