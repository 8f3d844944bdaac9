#pragma once

#include "Profiles/Clock.h"

#include <algorithm>
#include <cmath>

namespace tervale {

/// Virtual time, which passes only when told to. Its days begin at whole multiples of a day.
class SimulatedClock final : public Clock {
  public:
    explicit SimulatedClock(Date start = {}) : date(start) {}

    void advance(double seconds) {
        date = date + seconds;
        passed += seconds;
    }
    /// As the user sets a clock.
    void set(Date newDate) { date = newDate; }

    Date now() const override { return date; }
    double steady() const override { return passed; }
    int minuteOfDay() const override {
        constexpr double day = 86400;
        const double second = date.sinceReference - day * std::floor(date.sinceReference / day);
        // Just before midnight the difference may round up to a whole day.
        return std::min(1439, static_cast<int>(second / 60));
    }

  private:
    Date date;
    double passed = 0;
};

} // namespace tervale
