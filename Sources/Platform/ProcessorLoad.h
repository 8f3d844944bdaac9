#pragma once

#include <cstdint>
#include <optional>

namespace tervale {

/// How long the processors have worked and been there since the machine started, over all cores, in
/// the system's own unit.
struct ProcessorTimes {
    std::uint64_t busy = 0;
    std::uint64_t total = 0;

    bool operator==(const ProcessorTimes&) const = default;
};

/// The times now; nothing when the system does not tell them.
std::optional<ProcessorTimes> processorTimes();

/// Percent of the processors in use between two points in time, 0 to 100; nothing when no time has
/// passed.
std::optional<double> percentBusy(ProcessorTimes before, ProcessorTimes after);

/// This machine's processor load over the time between two readings.
class ProcessorLoad {
  public:
    /// Percent since the reading before, 0 to 100; nothing the first time, or when it is unknown.
    std::optional<double> read();

  private:
    std::optional<ProcessorTimes> before;
};

} // namespace tervale
