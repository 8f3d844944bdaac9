#include "Agent/FanPermission.h"

#include <algorithm>
#include <variant>

namespace tervale {

void FanPermission::tick() {
    blindTicks = std::min(blindTicks + 1, mostBlindTicks);
    ticksToSleep = std::max(ticksToSleep - 1, 0);
}

Target FanPermission::grant(const Target& wanted, bool safetyEngaged) {
    const bool takes = std::holds_alternative<target::Speed>(wanted);
    guardNeeded = guardNeeded || takes;
    // A guard that stands waits for its sign of life whatever the fans do.
    const bool guarded = !guard || !guardNeeded || guard();
    const bool seeing = safetyEngaged || blindTicks < mostBlindTicks;
    why = Refusal::none;
    if (!takes || sleeps())
        return target::Automatic{};
    if (guarded && seeing)
        return wanted;
    why = guarded ? Refusal::blind : Refusal::unguarded;
    return target::Automatic{};
}

} // namespace tervale
