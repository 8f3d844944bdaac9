#pragma once

#import <Foundation/Foundation.h>

// What the macOS adapters use and this implementation of Foundation does not declare.
@interface NSTimer (Tolerance)
- (void)setTolerance:(NSTimeInterval)tolerance;
@end

/// What the timer that was made last was given, in seconds; negative for none.
NSTimeInterval latestTimerTolerance();
