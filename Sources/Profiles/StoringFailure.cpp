#include "Profiles/StoringFailure.h"

namespace tervale {

namespace {

constexpr const char* beginning = "Not everything could be stored: ";

} // namespace

std::string storingFailure(const std::string& reason) {
    return beginning + reason + ". Another attempt follows.";
}

bool tellsStoringFailure(const BridgeState& state) {
    return state.status && state.status->find(beginning) != std::string::npos;
}

} // namespace tervale
