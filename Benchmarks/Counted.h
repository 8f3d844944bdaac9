#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace tervale {

/// Runs the work. Whoever counts instructions counts those in here and no others, by the function's
/// name.
extern "C" void countedWork(const std::function<void()>& work);

/// Something whose instructions are counted. `run` prepares it for a size and has the work itself
/// done by `countedWork`, once.
struct CountedTask {
    const char* name;
    /// Unless another is asked for.
    std::size_t size;
    void (*run)(std::size_t size);
};

/// Of the readings, of the panes.
std::span<const CountedTask> countedReadings();
std::span<const CountedTask> countedPanes();

} // namespace tervale
