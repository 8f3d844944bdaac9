#import "SuitesOfDefaults.h"

/// The defaults of one domain by its name, which this implementation of Foundation lacks.
@interface TervaleSuite : NSObject {
    NSString* domain;
}
- (id)initWithDomain:(NSString*)name;
- (id)objectForKey:(NSString*)key;
- (void)setObject:(id)object forKey:(NSString*)key;
- (void)removeObjectForKey:(NSString*)key;
- (NSDictionary*)dictionaryRepresentation;
- (BOOL)synchronize;
@end

@implementation TervaleSuite

- (id)initWithDomain:(NSString*)name {
    self = [super init];
    if (self)
        domain = [name copy];
    return self;
}

- (void)dealloc {
    [domain release];
    [super dealloc];
}

- (id)objectForKey:(NSString*)key {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    return [[defaults persistentDomainForName:domain] objectForKey:key];
}

- (void)setObject:(id)object forKey:(NSString*)key {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    NSMutableDictionary* values = [NSMutableDictionary dictionary];
    [values addEntriesFromDictionary:[defaults persistentDomainForName:domain]];
    [values setObject:object forKey:key];
    [defaults setPersistentDomain:values forName:domain];
}

- (void)removeObjectForKey:(NSString*)key {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    NSMutableDictionary* values = [NSMutableDictionary dictionary];
    [values addEntriesFromDictionary:[defaults persistentDomainForName:domain]];
    [values removeObjectForKey:key];
    [defaults setPersistentDomain:values forName:domain];
}

- (NSDictionary*)dictionaryRepresentation {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    return [defaults persistentDomainForName:domain];
}

- (BOOL)synchronize {
    return [[NSUserDefaults standardUserDefaults] synchronize];
}

@end

@implementation NSUserDefaults (Suites)

- (id)initWithSuiteName:(NSString*)name {
    [self release];
    return static_cast<id>([[TervaleSuite alloc] initWithDomain:name]);
}

@end
