#include "Platform/macOS/ReducedMotion.h"

#import <AppKit/AppKit.h>

namespace tervale {

bool reducedMotionWanted() {
    return [[NSWorkspace sharedWorkspace] accessibilityDisplayShouldReduceMotion] != NO;
}

} // namespace tervale
