#include "Platform/macOS/LoginItem.h"

#include "Platform/macOS/FoundationText.h"

#import <ServiceManagement/ServiceManagement.h>

namespace tervale {

namespace {

bool isSo(SMAppServiceStatus status, bool enabled) {
    if (enabled)
        return status == SMAppServiceStatusEnabled;
    // The system may not have found what was never registered.
    return status == SMAppServiceStatusNotRegistered || status == SMAppServiceStatusNotFound;
}

} // namespace

std::optional<std::string> setLoginItem(bool enabled) {
    @autoreleasepool {
        SMAppService* service =
            [SMAppService agentServiceWithPlistName:@"com.velnor.tervale.agent.plist"];
        if (isSo([service status], enabled))
            return std::nullopt;
        NSError* error = nil;
        const BOOL done = enabled ? [service registerAndReturnError:&error]
                                  : [service unregisterAndReturnError:&error];
        if (done)
            return std::nullopt;
        return standardText([error localizedDescription]).value_or("The system gives no reason.");
    }
}

} // namespace tervale
