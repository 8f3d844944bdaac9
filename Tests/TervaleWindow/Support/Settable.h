#pragma once

#include "Profiles/Clock.h"
#include "TervaleWindow/Model/Visibility.h"

namespace tervale {

/// A clock that stands where it is put.
class SettableClock final : public Clock {
  public:
    Date time;
    int minute = 0;

    Date now() const override { return time; }
    int minuteOfDay() const override { return minute; }
};

/// A window that is on screen or not as a test says.
class SettableVisibility final : public Visibility {
  public:
    bool shown = true;

    bool visible() const override { return shown; }
};

} // namespace tervale
