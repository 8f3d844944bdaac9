// The messages of IOKit that the adapters use, for building where Apple's own are not.
#pragma once

#define kIOMessageCanSystemSleep ((uint32_t)0xE0000270)
#define kIOMessageSystemWillSleep ((uint32_t)0xE0000280)
#define kIOMessageSystemHasPoweredOn ((uint32_t)0xE0000300)
