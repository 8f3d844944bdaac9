#pragma once

#import <Foundation/Foundation.h>

/// GNUstep lacks this one of the calls that the adapters use. It is declared to them by the
/// compiler's command line, so that they stay as they are.
@interface NSUserDefaults (TervaleSuite)
- (id)initWithSuiteName:(NSString*)name;
@end
