#pragma once

#include "JSON/JSON.h"
#include "Profiles/Bridge.h"

#include <string>

namespace tervale {

/// The line that a state without a timer becomes, of an agent that does not find its machine too
/// hot.
inline std::string lineOf(const BridgeState& state) {
    std::string text = encode(state);
    text.insert(text.find("\"launchAtLogin\""), "\"safety\":false,");
    return text + '\n';
}

} // namespace tervale
