#pragma once

#include <functional>
#include <optional>

namespace tervale {

/// Percent of the processor in use, 0 to 100; nothing when it is not known.
using LoadReading = std::function<std::optional<double>()>;

} // namespace tervale
