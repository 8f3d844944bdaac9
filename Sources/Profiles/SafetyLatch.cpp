#include "Profiles/SafetyLatch.h"

namespace tervale {

bool SafetyLatch::update(std::optional<double> hottest) {
    if (!hottest)
        return isEngaged;
    if (*hottest >= on)
        isEngaged = true;
    else if (*hottest < off)
        isEngaged = false;
    return isEngaged;
}

} // namespace tervale
