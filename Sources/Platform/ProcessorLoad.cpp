#include "Platform/ProcessorLoad.h"

#include <utility>

namespace tervale {

std::optional<double> percentBusy(ProcessorTimes before, ProcessorTimes after) {
    // The counts of single cores may start anew, when a core goes offline and comes back.
    if (after.total <= before.total || after.busy < before.busy)
        return std::nullopt;
    const auto busy = static_cast<double>(after.busy - before.busy);
    const auto total = static_cast<double>(after.total - before.total);
    return busy < total ? busy / total * 100 : 100;
}

std::optional<double> ProcessorLoad::read() {
    const std::optional<ProcessorTimes> now = processorTimes();
    const std::optional<ProcessorTimes> earlier = std::exchange(before, now);
    return earlier && now ? percentBusy(*earlier, *now) : std::nullopt;
}

} // namespace tervale
