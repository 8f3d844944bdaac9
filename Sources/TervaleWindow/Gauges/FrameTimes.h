#pragma once

namespace tervale {

/// How long each movement of a gauge takes, in milliseconds.
inline constexpr double gaugeDuration = 600;

/// How far a movement has come after `fraction` of its time, both from 0 to 1: the cubic Bézier
/// curve that all gauges share.
double eased(double fraction);

/// When one movement's frames are due, in milliseconds since it began. Knows no clock.
struct FrameTimes {
    /// The way of what goes farthest on screen, in device pixels.
    double distance = 0;
    /// From the beginning to the screen's next refresh, and from one refresh to the next.
    double firstRefresh = 1000.0 / 60;
    double refreshInterval = 1000.0 / 60;

    /// The frame that follows the one of the time `shown`: with the first refresh at which
    /// something has moved by half a pixel. The end of the movement always has a frame.
    double after(double shown) const;
};

} // namespace tervale
