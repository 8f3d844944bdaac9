// The declarations of ServiceManagement that the adapters use, for building where Apple's own are
// not.
#pragma once

#include <Foundation/Foundation.h>

typedef NSInteger SMAppServiceStatus;
enum : SMAppServiceStatus {
    SMAppServiceStatusNotRegistered = 0,
    SMAppServiceStatusEnabled = 1,
    SMAppServiceStatusRequiresApproval = 2,
    SMAppServiceStatusNotFound = 3
};

@interface SMAppService : NSObject
@property(readonly) SMAppServiceStatus status;
+ (instancetype)agentServiceWithPlistName:(NSString*)plistName;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
@end
