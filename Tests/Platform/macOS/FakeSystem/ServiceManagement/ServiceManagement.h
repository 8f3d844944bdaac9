// As much of ServiceManagement as the adapter uses, with a system behind it that a test sets: it
// knows one agent, takes down what it is asked to do with it, and refuses for the reason that it is
// given.
#pragma once

#import <Foundation/Foundation.h>
#include <optional>
#include <string>
#include <vector>

typedef NSInteger SMAppServiceStatus;
enum : SMAppServiceStatus {
    SMAppServiceStatusNotRegistered = 0,
    SMAppServiceStatusEnabled = 1,
    SMAppServiceStatusRequiresApproval = 2,
    SMAppServiceStatusNotFound = 3
};

@interface SMAppService : NSObject
+ (SMAppService*)agentServiceWithPlistName:(NSString*)plistName;
- (SMAppServiceStatus)status;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
@end

namespace fakeSystem {

/// Of the agent whose property list has the name.
extern SMAppServiceStatus loginStatus;
constexpr const char* propertyList = "com.velnor.tervale.agent.plist";
/// Nil for a refusal without one.
extern NSString* refusal;
extern bool refuses;
extern std::vector<std::string> requests;

} // namespace fakeSystem
