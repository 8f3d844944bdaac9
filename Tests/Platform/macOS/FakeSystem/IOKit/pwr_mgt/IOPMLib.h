#pragma once

#include <IOKit/IOKitLib.h>

// As much of IOKit's power management as the macOS adapters use, answered by `FakePower`.

extern "C" {
io_connect_t IORegisterForSystemPower(void* reference, IONotificationPortRef* port,
                                      IOServiceInterestCallback callback, io_object_t* notifier);
kern_return_t IODeregisterForSystemPower(io_object_t* notifier);
kern_return_t IOAllowPowerChange(io_connect_t kernelPort, std::intptr_t notification);
}
