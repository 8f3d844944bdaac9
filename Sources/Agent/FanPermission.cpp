#include "Agent/FanPermission.h"

#include <algorithm>
#include <variant>

namespace tervale {

namespace {

constexpr const char* noGuard =
    "The fans are automatic, since no guard could be started that hands them back.";
constexpr const char* blind =
    "The fans are automatic until a CPU or GPU temperature can be read again.";

} // namespace

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
    why = nullptr;
    if (!takes || ticksToSleep > 0)
        return target::Automatic{};
    if (guarded && seeing)
        return wanted;
    why = guarded ? blind : noGuard;
    return target::Automatic{};
}

} // namespace tervale
