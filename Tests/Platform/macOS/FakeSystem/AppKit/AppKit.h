// As much of AppKit as the adapters use, with a system behind it that a test sets: it has one
// symbol, "fan", takes down how that is drawn, and its menus are open when a test says so.
#pragma once

#import <Foundation/Foundation.h>
#include <cstddef>
#include <cstdint>
#include <string>

typedef CGFloat NSFontWeight;
extern const NSFontWeight NSFontWeightMedium;
extern const NSFontWeight NSFontWeightRegular;
extern const NSFontWeight NSFontWeightSemibold;

typedef NSUInteger NSCompositingOperation;
enum : NSCompositingOperation { NSCompositingOperationSourceOver = 2 };

typedef struct CGColorSpace* CGColorSpaceRef;
typedef struct CGContext* CGContextRef;
enum CGImageAlphaInfo : std::uint32_t { kCGImageAlphaPremultipliedLast = 1 };

CGContextRef CGBitmapContextCreate(void* data, std::size_t width, std::size_t height,
                                   std::size_t bitsPerComponent, std::size_t bytesPerRow,
                                   CGColorSpaceRef space, std::uint32_t bitmapInfo);
CGColorSpaceRef CGColorSpaceCreateDeviceRGB();
void CGColorSpaceRelease(CGColorSpaceRef space);
void CGContextRelease(CGContextRef context);

@interface NSImageSymbolConfiguration : NSObject {
  @public
    CGFloat pointSize;
    NSFontWeight weight;
}
+ (NSImageSymbolConfiguration*)configurationWithPointSize:(CGFloat)pointSize
                                                   weight:(NSFontWeight)weight;
@end

@interface NSImage : NSObject {
    CGFloat pointSize;
    NSFontWeight weight;
}
+ (NSImage*)imageWithSystemSymbolName:(NSString*)name
             accessibilityDescription:(NSString*)description;
- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration;
/// A fifth wider than high; as high as the text of its point size.
- (NSSize)size;
- (void)drawInRect:(NSRect)destination
          fromRect:(NSRect)source
         operation:(NSCompositingOperation)operation
          fraction:(CGFloat)opacity;
@end

@interface NSGraphicsContext : NSObject
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)flipped;
+ (void)setCurrentContext:(NSGraphicsContext*)context;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end

extern NSString* const NSMenuDidBeginTrackingNotification;
extern NSString* const NSMenuDidEndTrackingNotification;

@interface NSMenu : NSObject
/// Tells that it has ended.
- (void)cancelTrackingWithoutAnimation;
@end

@interface NSWorkspace : NSObject
+ (NSWorkspace*)sharedWorkspace;
- (BOOL)accessibilityDisplayShouldIncreaseContrast;
- (BOOL)accessibilityDisplayShouldReduceMotion;
@end

namespace fakeSystem {

extern bool increasesContrast;
extern bool reducesMotion;
/// How the symbol was last drawn: its weight, and its place from the lower left corner.
struct Drawing {
    NSFontWeight weight = -1;
    NSRect place{};
};
extern Drawing drawing;
/// Of each pixel that is drawn.
constexpr std::uint8_t opacity = 200;

} // namespace fakeSystem
