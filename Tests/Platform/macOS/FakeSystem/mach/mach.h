#pragma once

#include <cstdint>

// As much of the kernel's interface as the macOS adapters use, answered by `FakeKernel`.

using natural_t = std::uint32_t;
using integer_t = std::int32_t;
using kern_return_t = int;
using mach_port_t = natural_t;
using task_t = mach_port_t;
using task_port_t = mach_port_t;
using mach_msg_type_number_t = natural_t;
using host_t = mach_port_t;
using host_flavor_t = integer_t;
using host_info_t = integer_t*;

constexpr kern_return_t KERN_SUCCESS = 0;

constexpr host_flavor_t HOST_CPU_LOAD_INFO = 3;
constexpr int CPU_STATE_IDLE = 2;
constexpr int CPU_STATE_MAX = 4;
struct host_cpu_load_info_data_t {
    natural_t cpu_ticks[CPU_STATE_MAX];
};
constexpr mach_msg_type_number_t HOST_CPU_LOAD_INFO_COUNT =
    sizeof(host_cpu_load_info_data_t) / sizeof(integer_t);

extern "C" {
mach_port_t mach_task_self();
mach_port_t mach_host_self();
kern_return_t mach_port_deallocate(task_t task, mach_port_t port);
kern_return_t host_statistics(host_t host, host_flavor_t flavor, host_info_t information,
                              mach_msg_type_number_t* count);
}
