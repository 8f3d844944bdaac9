#include "Platform/macOS/SystemSymbols.h"

#include "Platform/macOS/FoundationText.h"

#import <AppKit/AppKit.h>
#include <algorithm>
#include <vector>

namespace tervale {

namespace {

/// How large a font's symbols are beside the box that they stand in: most fill it, none by much.
constexpr double pointsOfSide = 0.8;

NSFontWeight fontWeight(double weight) {
    if (weight > 1.2)
        return NSFontWeightSemibold;
    return weight > 1 ? NSFontWeightMedium : NSFontWeightRegular;
}

/// The symbol in a weight and the size that belongs to a box; nil where there is none.
NSImage* symbolNamed(const std::string& name, int side, double weight) {
    NSImage* symbol = [NSImage imageWithSystemSymbolName:foundationText(name)
                                accessibilityDescription:nil];
    NSImageSymbolConfiguration* configuration =
        [NSImageSymbolConfiguration configurationWithPointSize:side * pointsOfSide
                                                        weight:fontWeight(weight)];
    return [symbol imageWithSymbolConfiguration:configuration];
}

/// The place of that size in the middle of a square, shrunk where it is larger than the square.
NSRect placeOf(NSSize size, int side) {
    const double scale = std::min(1.0, side / std::max(size.width, size.height));
    const double width = size.width * scale;
    const double height = size.height * scale;
    return NSMakeRect((side - width) / 2, (side - height) / 2, width, height);
}

constexpr std::size_t channels = 4;

/// Of each pixel the last channel.
std::vector<std::uint8_t> opacityOf(const std::vector<std::uint8_t>& pixels) {
    std::vector<std::uint8_t> opacity;
    opacity.reserve(pixels.size() / channels);
    for (std::size_t last = channels - 1; last < pixels.size(); last += channels)
        opacity.push_back(pixels[last]);
    return opacity;
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
        // Red, green, blue and opacity of each pixel; the rows in memory begin at the top.
        std::vector<std::uint8_t> pixels(length * length * channels);
        CGColorSpaceRef colors = CGColorSpaceCreateDeviceRGB();
        CGContextRef context =
            CGBitmapContextCreate(pixels.data(), length, length, 8, length * channels, colors,
                                  kCGImageAlphaPremultipliedLast);
        CGColorSpaceRelease(colors);
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
        return SymbolMask{side, opacityOf(pixels)};
    }
}

} // namespace tervale
