#import <AppKit/AppKit.h>
#include <cmath>
#include <cstring>

const NSFontWeight NSFontWeightRegular = 0;
const NSFontWeight NSFontWeightMedium = 0.23;
const NSFontWeight NSFontWeightSemibold = 0.3;
NSString* const NSMenuDidBeginTrackingNotification = @"NSMenuDidBeginTrackingNotification";
NSString* const NSMenuDidEndTrackingNotification = @"NSMenuDidEndTrackingNotification";

bool fakeSystem::increasesContrast = false;
bool fakeSystem::reducesMotion = false;
fakeSystem::Drawing fakeSystem::drawing;

struct CGColorSpace {};
struct CGContext {
    std::uint8_t* data;
    std::size_t width;
    std::size_t height;
    std::size_t bytesPerRow;
};

namespace {
CGColorSpace deviceColors;
CGContextRef current = nullptr;
} // namespace

CGColorSpaceRef CGColorSpaceCreateDeviceRGB() {
    return &deviceColors;
}

void CGColorSpaceRelease(CGColorSpaceRef) {}

CGContextRef CGBitmapContextCreate(void* data, std::size_t width, std::size_t height,
                                   std::size_t bitsPerComponent, std::size_t bytesPerRow,
                                   CGColorSpaceRef space, std::uint32_t bitmapInfo) {
    // What the system takes of such colours: four whole bytes a pixel, the opacity last.
    const bool known = space == &deviceColors && bitmapInfo == kCGImageAlphaPremultipliedLast &&
                       bitsPerComponent == 8 && bytesPerRow >= width * 4;
    return known ? new CGContext{static_cast<std::uint8_t*>(data), width, height, bytesPerRow}
                 : nullptr;
}

void CGContextRelease(CGContextRef context) {
    delete context;
}

@implementation NSImageSymbolConfiguration

+ (NSImageSymbolConfiguration*)configurationWithPointSize:(CGFloat)size
                                                   weight:(NSFontWeight)chosen {
    NSImageSymbolConfiguration* made = [[[NSImageSymbolConfiguration alloc] init] autorelease];
    made->pointSize = size;
    made->weight = chosen;
    return made;
}

@end

@implementation NSImage

+ (NSImage*)imageWithSystemSymbolName:(NSString*)name
             accessibilityDescription:(NSString*)description {
    (void)description;
    return [name isEqualToString:@"fan"] ? [[[NSImage alloc] init] autorelease] : nil;
}

- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration {
    NSImage* made = [[[NSImage alloc] init] autorelease];
    made->pointSize = configuration->pointSize;
    made->weight = configuration->weight;
    return made;
}

- (NSSize)size {
    return NSMakeSize(1.2 * pointSize, pointSize);
}

- (void)drawInRect:(NSRect)destination
          fromRect:(NSRect)source
         operation:(NSCompositingOperation)operation
          fraction:(CGFloat)opacity {
    (void)source;
    (void)operation;
    (void)opacity;
    fakeSystem::drawing = {weight, destination};
    const auto left = static_cast<std::size_t>(std::lround(NSMinX(destination)));
    const auto right = static_cast<std::size_t>(std::lround(NSMaxX(destination)));
    const auto top = current->height - static_cast<std::size_t>(std::lround(NSMaxY(destination)));
    const auto bottom =
        current->height - static_cast<std::size_t>(std::lround(NSMinY(destination)));
    for (std::size_t y = top; y < bottom; ++y) {
        for (std::size_t x = left; x < right; ++x) {
            const std::uint8_t pixel[] = {1, 2, 3, fakeSystem::opacity};
            std::memcpy(current->data + y * current->bytesPerRow + x * 4, pixel, sizeof pixel);
        }
    }
}

@end

@implementation NSGraphicsContext

+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)flipped {
    (void)flipped;
    current = context;
    return [[[NSGraphicsContext alloc] init] autorelease];
}

+ (void)setCurrentContext:(NSGraphicsContext*)context {
    (void)context;
}

+ (void)saveGraphicsState {
}

+ (void)restoreGraphicsState {
    current = nullptr;
}

@end

@implementation NSMenu

- (void)cancelTrackingWithoutAnimation {
    [[NSNotificationCenter defaultCenter] postNotificationName:NSMenuDidEndTrackingNotification
                                                        object:self];
}

@end

@implementation NSWorkspace

+ (NSWorkspace*)sharedWorkspace {
    static NSWorkspace* shared = [[NSWorkspace alloc] init];
    return shared;
}

- (BOOL)accessibilityDisplayShouldIncreaseContrast {
    return fakeSystem::increasesContrast ? YES : NO;
}

- (BOOL)accessibilityDisplayShouldReduceMotion {
    return fakeSystem::reducesMotion ? YES : NO;
}

@end
