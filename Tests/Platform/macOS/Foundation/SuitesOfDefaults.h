#pragma once

#import <Foundation/Foundation.h>

// What the macOS adapters use and this implementation of Foundation does not declare.
@interface NSUserDefaults (Suites)
- (id)initWithSuiteName:(NSString*)name;
@end
