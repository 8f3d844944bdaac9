#include "Platform/macOS/TolerantTimer.h"

#import <Foundation/Foundation.h>
#include <utility>

/// What the timer calls; the timer keeps it until it is invalidated.
@interface TervaleTimerTarget : NSObject {
    // Not every runtime constructs members that are no objects of its own.
    std::function<void()>* handler;
}
- (id)initWithHandler:(std::function<void()>)called;
- (void)fire:(NSTimer*)timer;
@end

@implementation TervaleTimerTarget

- (id)initWithHandler:(std::function<void()>)called {
    self = [super init];
    if (self)
        handler = new std::function<void()>(std::move(called));
    return self;
}

- (void)dealloc {
    delete handler;
    [super dealloc];
}

- (void)fire:(NSTimer*)timer {
    (void)timer;
    @autoreleasepool {
        (*handler)();
    }
}

@end

namespace tervale {

namespace {

double seconds(std::chrono::milliseconds duration) {
    return std::chrono::duration<double>(duration).count();
}

} // namespace

std::shared_ptr<void> tolerantTimer(std::chrono::milliseconds interval,
                                    std::chrono::milliseconds tolerance,
                                    std::function<void()> handler) {
    @autoreleasepool {
        TervaleTimerTarget* target =
            [[TervaleTimerTarget alloc] initWithHandler:std::move(handler)];
        NSTimer* timer = [NSTimer timerWithTimeInterval:seconds(interval)
                                                 target:target
                                               selector:@selector(fire:)
                                               userInfo:nil
                                                repeats:YES];
        [target release];
        [timer setTolerance:seconds(tolerance)];
        [[NSRunLoop mainRunLoop] addTimer:timer forMode:NSRunLoopCommonModes];
        return {[timer retain], [](void* kept) {
                    @autoreleasepool {
                        auto* ended = static_cast<NSTimer*>(kept);
                        [ended invalidate];
                        [ended release];
                    }
                }};
    }
}

} // namespace tervale
