#import "TimerTolerance.h"

namespace {
NSTimeInterval latest = -1;
} // namespace

NSTimeInterval latestTimerTolerance() {
    return latest;
}

/// Timers of this implementation of Foundation are never late on purpose; what they may be is
/// taken down.
@implementation NSTimer (Tolerance)

- (void)setTolerance:(NSTimeInterval)tolerance {
    latest = tolerance;
}

@end
