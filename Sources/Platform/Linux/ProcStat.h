#pragma once

#include "Platform/ProcessorLoad.h"

#include <optional>
#include <string_view>

namespace tervale {

/// The times in the text of /proc/stat, whose first line counts for all cores together: user, nice,
/// system, idle, waiting for input and output, interrupts, soft interrupts, stolen. Older systems
/// leave out the last ones; what may follow is contained in the first two. Nothing for any other
/// text.
std::optional<ProcessorTimes> parseProcStat(std::string_view text);

} // namespace tervale
