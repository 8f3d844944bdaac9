// The declarations of CoreFoundation that the adapters use, for building where Apple's own are not.
#pragma once

typedef const struct __CFDictionary* CFDictionaryRef;
typedef struct __CFDictionary* CFMutableDictionaryRef;
