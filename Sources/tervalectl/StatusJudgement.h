#pragma once

#include "Profiles/Bridge.h"

namespace tervale {

/// Whether the agent says nothing but what it may say while all is well: anything else in its
/// status tells why something does not work.
bool tellsThatAllIsWell(const BridgeState& state);

/// Whether the agent says that the safety latch is engaged: the machine is too hot, and the fans
/// run at full speed whatever was selected, or would if nothing kept them from it.
bool tellsSafety(const BridgeState& state);

} // namespace tervale
