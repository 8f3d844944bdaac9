// The declarations of IOKit that the adapters use, for building where Apple's own are not.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <dispatch/dispatch.h>
#include <mach/mach.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef mach_port_t io_object_t;
typedef io_object_t io_connect_t;
typedef io_object_t io_service_t;
typedef struct IONotificationPort* IONotificationPortRef;
typedef void (*IOServiceInterestCallback)(void* refcon, io_service_t service, uint32_t messageType,
                                          void* messageArgument);

#define IO_OBJECT_NULL ((io_object_t)0)
#define kIOReturnUnderrun ((kern_return_t)0xE00002E7)

extern const mach_port_t kIOMainPortDefault;

CFMutableDictionaryRef IOServiceMatching(const char* name);
/// Consumes a reference to the dictionary.
io_service_t IOServiceGetMatchingService(mach_port_t mainPort, CFDictionaryRef matching);
kern_return_t IOServiceOpen(io_service_t service, task_port_t owningTask, uint32_t type,
                            io_connect_t* connect);
kern_return_t IOServiceClose(io_connect_t connect);
kern_return_t IOObjectRelease(io_object_t object);
kern_return_t IOConnectCallStructMethod(mach_port_t connection, uint32_t selector,
                                        const void* inputStruct, size_t inputStructCount,
                                        void* outputStruct, size_t* outputStructCount);
void IONotificationPortSetDispatchQueue(IONotificationPortRef notify, dispatch_queue_t queue);
void IONotificationPortDestroy(IONotificationPortRef notify);

#ifdef __cplusplus
}
#endif
