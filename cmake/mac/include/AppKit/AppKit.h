// The declarations of AppKit that the adapters use, for building where Apple's own are not.
#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>

typedef CGSize NSSize;
typedef CGRect NSRect;
inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}

typedef CGFloat NSFontWeight;
extern "C" const NSFontWeight NSFontWeightMedium;
extern "C" const NSFontWeight NSFontWeightRegular;
extern "C" const NSFontWeight NSFontWeightSemibold;

typedef NSUInteger NSCompositingOperation;
enum : NSCompositingOperation { NSCompositingOperationSourceOver = 2 };

@interface NSImageSymbolConfiguration : NSObject
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(NSFontWeight)weight;
@end

@interface NSImage : NSObject
@property NSSize size;
+ (instancetype)imageWithSystemSymbolName:(NSString*)name
                 accessibilityDescription:(NSString*)description;
- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration;
- (void)drawInRect:(NSRect)destination
          fromRect:(NSRect)source
         operation:(NSCompositingOperation)operation
          fraction:(CGFloat)opacity;
@end

extern "C" NSString* const NSMenuDidBeginTrackingNotification;
extern "C" NSString* const NSMenuDidEndTrackingNotification;

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(readonly) BOOL accessibilityDisplayShouldIncreaseContrast;
@property(readonly) BOOL accessibilityDisplayShouldReduceMotion;
@end

@interface NSMenu : NSObject
- (void)cancelTrackingWithoutAnimation;
@end

@interface NSGraphicsContext : NSObject
@property(class, strong) NSGraphicsContext* currentContext;
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)flipped;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end
