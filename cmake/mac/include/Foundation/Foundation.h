// The declarations of Foundation that the adapters use, for building where Apple's own are not.
#pragma once

#include <objc/NSObject.h>

@interface NSObject (NSThreadPerformAdditions)
- (void)performSelectorOnMainThread:(SEL)selector withObject:(id)argument waitUntilDone:(BOOL)wait;
@end

@interface NSData : NSObject
@property(readonly) NSUInteger length;
@property(readonly) const void* bytes;
+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length;
@end

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

@interface NSString : NSObject
+ (instancetype)string;
- (instancetype)initWithBytes:(const void*)bytes
                       length:(NSUInteger)length
                     encoding:(NSStringEncoding)encoding;
- (BOOL)isEqualToString:(NSString*)other;
- (NSData*)dataUsingEncoding:(NSStringEncoding)encoding allowLossyConversion:(BOOL)lossy;
@end

@interface NSError : NSObject
@property(readonly, copy) NSString* localizedDescription;
@end

@interface NSMutableString : NSString
- (void)appendString:(NSString*)text;
@end

@interface NSArray : NSObject
@property(readonly) NSUInteger count;
- (id)objectAtIndex:(NSUInteger)index;
@end

@interface NSDictionary : NSObject
@property(readonly, copy) NSArray* allKeys;
- (id)objectForKey:(id)key;
@end

@interface NSBundle : NSObject
@property(class, readonly, strong) NSBundle* mainBundle;
@property(readonly, copy) NSString* bundleIdentifier;
@property(readonly, copy) NSDictionary* infoDictionary;
@end

@interface NSThread : NSObject
@property(class, readonly) BOOL isMainThread;
@end

@interface NSUserDefaults : NSObject
@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
- (instancetype)initWithSuiteName:(NSString*)suiteName;
- (id)objectForKey:(NSString*)name;
- (void)setObject:(id)value forKey:(NSString*)name;
- (void)removeObjectForKey:(NSString*)name;
- (NSDictionary*)dictionaryRepresentation;
- (BOOL)synchronize;
@end

@interface NSNotification : NSObject
@property(readonly, copy) NSString* name;
@property(readonly, retain) id object;
@end

@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (void)addObserver:(id)observer selector:(SEL)selector name:(NSString*)name object:(id)object;
- (void)removeObserver:(id)observer;
@end

typedef double NSTimeInterval;

@interface NSTimer : NSObject
@property NSTimeInterval tolerance;
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                           target:(id)target
                         selector:(SEL)selector
                         userInfo:(id)information
                          repeats:(BOOL)repeats;
- (void)invalidate;
@end

extern "C" NSString* const NSRunLoopCommonModes;

@interface NSRunLoop : NSObject
@property(class, readonly, strong) NSRunLoop* mainRunLoop;
- (void)addTimer:(NSTimer*)timer forMode:(NSString*)mode;
@end

typedef NSUInteger NSNotificationSuspensionBehavior;
enum : NSNotificationSuspensionBehavior { NSNotificationSuspensionBehaviorDeliverImmediately = 4 };

@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter;
- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(NSString*)name
                object:(NSString*)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)behavior;
- (void)postNotificationName:(NSString*)name
                      object:(NSString*)object
                    userInfo:(NSDictionary*)userInfo
          deliverImmediately:(BOOL)immediately;
@end
