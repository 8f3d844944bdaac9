#include "Platform/macOS/IncreasedContrast.h"

#import <AppKit/AppKit.h>

namespace tervale {

bool increasedContrast() {
    return [[NSWorkspace sharedWorkspace] accessibilityDisplayShouldIncreaseContrast] != NO;
}

} // namespace tervale
