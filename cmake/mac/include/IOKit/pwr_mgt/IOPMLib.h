// The declarations of IOKit's power management that the adapters use, for building where Apple's
// own are not.
#pragma once

#include <IOKit/IOKitLib.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The root power domain, to be closed; 0 if the system takes no one on.
io_connect_t IORegisterForSystemPower(void* refcon, IONotificationPortRef* thePortRef,
                                      IOServiceInterestCallback callback, io_object_t* notifier);
kern_return_t IODeregisterForSystemPower(io_object_t* notifier);
kern_return_t IOAllowPowerChange(io_connect_t kernelPort, intptr_t notificationID);

#ifdef __cplusplus
}
#endif
