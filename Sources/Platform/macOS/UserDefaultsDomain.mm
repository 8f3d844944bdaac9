#include "Platform/macOS/UserDefaultsDomain.h"

namespace tervale {

NSUserDefaults* newUserDefaults(NSString* domain) {
    // A program's own domain is the standard one and cannot be opened by its name.
    if ([domain isEqualToString:[[NSBundle mainBundle] bundleIdentifier]])
        return [[NSUserDefaults standardUserDefaults] retain];
    return [[NSUserDefaults alloc] initWithSuiteName:domain];
}

} // namespace tervale
