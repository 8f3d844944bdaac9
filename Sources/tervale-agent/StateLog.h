#pragma once

#include "Profiles/Bridge.h"

#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// What the log tells of the agent's state: a line for each thing that is another than before, and
/// none while nothing changes.
class StateLog {
  public:
    std::vector<std::string> changes(const BridgeState& state);

  private:
    std::optional<BridgeState> before;
};

} // namespace tervale
