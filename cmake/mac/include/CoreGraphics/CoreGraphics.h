// The declarations of CoreGraphics that the adapters use, for building where Apple's own are not.
#pragma once

#include <cstddef>
#include <cstdint>

typedef double CGFloat;
struct CGPoint {
    CGFloat x;
    CGFloat y;
};
struct CGSize {
    CGFloat width;
    CGFloat height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};

typedef struct CGColorSpace* CGColorSpaceRef;
typedef struct CGContext* CGContextRef;
enum CGImageAlphaInfo : std::uint32_t { kCGImageAlphaPremultipliedLast = 1 };

extern "C" {
CGContextRef CGBitmapContextCreate(void* data, std::size_t width, std::size_t height,
                                   std::size_t bitsPerComponent, std::size_t bytesPerRow,
                                   CGColorSpaceRef space, std::uint32_t bitmapInfo);
CGColorSpaceRef CGColorSpaceCreateDeviceRGB(void);
void CGColorSpaceRelease(CGColorSpaceRef space);
void CGContextRelease(CGContextRef context);
}
