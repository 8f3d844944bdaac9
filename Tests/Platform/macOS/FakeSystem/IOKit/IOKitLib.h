#pragma once

#include <cstddef>
#include <cstdint>
#include <dispatch/dispatch.h>
#include <mach/mach.h>

// As much of IOKit as the macOS adapters use, answered by `FakeKernel`.

using io_object_t = mach_port_t;
using io_service_t = io_object_t;
using io_connect_t = io_object_t;
using CFDictionaryRef = const struct FakeDictionary*;
using CFMutableDictionaryRef = struct FakeDictionary*;
using IONotificationPortRef = struct FakeNotificationPort*;
using IOServiceInterestCallback = void (*)(void* reference, io_service_t service,
                                           std::uint32_t message, void* argument);

constexpr io_object_t IO_OBJECT_NULL = 0;
constexpr mach_port_t kIOMainPortDefault = 0;
constexpr kern_return_t kIOReturnUnderrun = static_cast<kern_return_t>(0xE00002E7U);

extern "C" {
CFMutableDictionaryRef IOServiceMatching(const char* name);
io_service_t IOServiceGetMatchingService(mach_port_t mainPort, CFDictionaryRef matching);
kern_return_t IOServiceOpen(io_service_t service, task_port_t owningTask, std::uint32_t type,
                            io_connect_t* connect);
kern_return_t IOObjectRelease(io_object_t object);
kern_return_t IOConnectCallStructMethod(io_connect_t connection, std::uint32_t selector,
                                        const void* input, std::size_t inputSize, void* output,
                                        std::size_t* outputSize);
kern_return_t IOServiceClose(io_connect_t connect);
void IONotificationPortSetDispatchQueue(IONotificationPortRef port, dispatch_queue_t queue);
void IONotificationPortDestroy(IONotificationPortRef port);
}
