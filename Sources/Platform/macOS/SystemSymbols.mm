#include "Platform/macOS/SystemSymbols.h"

#include "Platform/macOS/FoundationText.h"

#import <AppKit/AppKit.h>
#include <algorithm>

namespace tervale {

namespace {

/// The symbol in a weight and about as large as wanted; nil where there is none.
NSImage* symbolNamed(const std::string& name, int side, double weight) {
    NSImage* symbol = [NSImage imageWithSystemSymbolName:foundationText(name)
                                accessibilityDescription:nil];
    NSImageSymbolConfiguration* configuration = [NSImageSymbolConfiguration
        configurationWithPointSize:side
                            weight:weight > 1 ? NSFontWeightSemibold : NSFontWeightRegular];
    return [symbol imageWithSymbolConfiguration:configuration];
}

/// The largest place of that shape in the middle of a square.
NSRect placeOf(NSSize size, int side) {
    const double scale = side / std::max(size.width, size.height);
    const double width = size.width * scale;
    const double height = size.height * scale;
    return NSMakeRect((side - width) / 2, (side - height) / 2, width, height);
}

} // namespace

std::optional<SymbolMask> systemSymbol(const std::string& name, int side, double weight) {
    if (side <= 0)
        return std::nullopt;
    @autoreleasepool {
        NSImage* symbol = symbolNamed(name, side, weight);
        if (!symbol || !([symbol size].width > 0) || !([symbol size].height > 0))
            return std::nullopt;
        const auto length = static_cast<std::size_t>(side);
        SymbolMask mask{side, std::vector<std::uint8_t>(length * length)};
        // Of a picture without colours the rows in memory begin at the top.
        CGContextRef context = CGBitmapContextCreate(mask.coverage.data(), length, length, 8,
                                                     length, nullptr, kCGImageAlphaOnly);
        if (!context)
            return std::nullopt;
        [NSGraphicsContext saveGraphicsState];
        [NSGraphicsContext setCurrentContext:[NSGraphicsContext graphicsContextWithCGContext:context
                                                                                     flipped:NO]];
        [symbol drawInRect:placeOf([symbol size], side)
                  fromRect:NSMakeRect(0, 0, 0, 0)
                 operation:NSCompositingOperationSourceOver
                  fraction:1];
        [NSGraphicsContext restoreGraphicsState];
        CGContextRelease(context);
        return mask;
    }
}

} // namespace tervale
