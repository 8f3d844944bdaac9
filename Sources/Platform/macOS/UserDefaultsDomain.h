#pragma once

#import <Foundation/Foundation.h>

namespace tervale {

/// The user's defaults of a domain, which the caller releases.
NSUserDefaults* newUserDefaults(NSString* domain);

} // namespace tervale
