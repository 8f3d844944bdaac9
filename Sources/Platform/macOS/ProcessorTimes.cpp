#include "Platform/ProcessorLoad.h"

#include <mach/mach.h>

namespace tervale {

std::optional<ProcessorTimes> processorTimes() {
    host_cpu_load_info_data_t ticks{};
    mach_msg_type_number_t count = HOST_CPU_LOAD_INFO_COUNT;
    const mach_port_t host = mach_host_self();
    const kern_return_t status =
        host_statistics(host, HOST_CPU_LOAD_INFO, reinterpret_cast<host_info_t>(&ticks), &count);
    // Every call of mach_host_self adds a reference to the port.
    mach_port_deallocate(mach_task_self(), host);
    if (status != KERN_SUCCESS)
        return std::nullopt;
    ProcessorTimes times;
    for (int state = 0; state < CPU_STATE_MAX; ++state)
        times.total += ticks.cpu_ticks[state];
    times.busy = times.total - ticks.cpu_ticks[CPU_STATE_IDLE];
    return times;
}

} // namespace tervale
