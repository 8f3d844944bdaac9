#include "Platform/macOS/SuiteDefaults.h"

/// Reads and writes one persistent domain, which is a suite's.
@interface TervaleSuiteDefaults : NSUserDefaults {
    NSString* suite;
}
- (id)initWithDomain:(NSString*)name;
@end

@implementation TervaleSuiteDefaults

- (id)initWithDomain:(NSString*)name {
    self = [super init];
    if (self) {
        suite = [name copy];
        // Nothing else reads what other processes have stored.
        [self synchronize];
    }
    return self;
}

- (void)dealloc {
    [suite release];
    [super dealloc];
}

- (id)objectForKey:(NSString*)key {
    // Asked by its own initialiser too.
    return suite ? [[self persistentDomainForName:suite] objectForKey:key]
                 : [super objectForKey:key];
}

- (void)setObject:(id)value forKey:(NSString*)key {
    NSMutableDictionary* values = [NSMutableDictionary dictionary];
    [values addEntriesFromDictionary:[self persistentDomainForName:suite]];
    [values setObject:value forKey:key];
    [self setPersistentDomain:values forName:suite];
}

@end

@implementation NSUserDefaults (TervaleSuite)

- (id)initWithSuiteName:(NSString*)name {
    [self release];
    return [[TervaleSuiteDefaults alloc] initWithDomain:name];
}

@end
