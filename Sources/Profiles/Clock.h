#pragma once

#include "JSON/JSONForward.h"

#include <compare>

namespace tervale {

/// A point in time, in seconds since 2001-01-01 00:00:00 UTC.
struct Date {
    double sinceReference = 0;

    /// The reference date in seconds since 1970-01-01 00:00:00 UTC.
    static constexpr double referenceSinceUnixEpoch = 978307200.0;

    constexpr Date operator+(double seconds) const { return {sinceReference + seconds}; }
    /// Seconds from `earlier` to this date.
    constexpr double operator-(Date earlier) const {
        return sinceReference - earlier.sinceReference;
    }

    auto operator<=>(const Date&) const = default;
};

/// In JSON a number of seconds.
void write(JSONWriter& json, Date date);
Date read(const JSONReader& json, Type<Date>);

/// Tells the time, so that nothing else has to ask the system for it.
class Clock {
  public:
    virtual ~Clock() = default;

    virtual Date now() const = 0;
    /// The local minute of the day, 0 to 1439.
    virtual int minuteOfDay() const = 0;
    /// Seconds since a moment that stays the same, whatever the clock is set to; the machine's
    /// sleep is counted.
    virtual double steady() const = 0;
};

/// The machine's own time, in its time zone.
class SystemClock final : public Clock {
  public:
    Date now() const override;
    int minuteOfDay() const override;
    double steady() const override;
};

} // namespace tervale
