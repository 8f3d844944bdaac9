#include "Platform/macOS/BundleMetadata.h"

#include "Platform/macOS/FoundationText.h"

namespace tervale {

bool programHasBundle() {
    @autoreleasepool {
        return [[NSBundle mainBundle] bundleIdentifier] != nil;
    }
}

std::optional<std::string> bundleText(const std::string& key) {
    @autoreleasepool {
        // The localised dictionary is for people, and may hold something else.
        NSDictionary* dictionary = [[NSBundle mainBundle] infoDictionary];
        return standardText([dictionary objectForKey:foundationText(key)]);
    }
}

} // namespace tervale
