#pragma once

#include "Profiles/Hysteresis.h"
#include "Profiles/Profile.h"
#include "Profiles/SafetyLatch.h"
#include "Profiles/TemperatureInputs.h"

#include <optional>
#include <span>
#include <variant>

namespace tervale {

namespace target {
/// The fans go back to the system's own control.
struct Automatic {
    bool operator==(const Automatic&) const = default;
};
/// The fans run at a fraction of their range.
struct Speed {
    double fraction = 0;
    bool operator==(const Speed&) const = default;
};
} // namespace target

/// What the fans are to do.
using Target = std::variant<target::Automatic, target::Speed>;

/// What must be sampled for a selection.
struct Needs {
    /// Always holds `Controller::safetyInputs`.
    TemperatureInputSet temperatures;
    bool load = false;

    bool operator==(const Needs&) const = default;
};

/// The readings of one control tick.
struct Inputs {
    TemperatureReadings temperatures;
    /// Percent, 0 to 100; nothing when not sampled or not available.
    std::optional<double> load;
    /// The local minute of the day, 0 to 1439.
    int minuteOfDay = 0;
};

/// Turns a selection, the profiles and the readings into what the fans are to do, once a control
/// tick. The hottest CPU or GPU sensor overrides every selection through the safety latch.
///
/// All temperature curves share one hysteresis and all load curves another, whichever profile runs;
/// nothing resets them. One thread at a time; `needs` and `resolve` are pure.
class Controller {
  public:
    static constexpr double temperatureBand = 3.0;
    static constexpr double loadBand = 10.0;
    static constexpr TemperatureInputSet safetyInputs{
        TemperatureInput::hottestOf(SensorGroup::cpu),
        TemperatureInput::hottestOf(SensorGroup::gpu)};

    /// What an action comes to at one minute of the day. Curves are borrowed from the list of
    /// profiles, so that a tick allocates nothing.
    struct Resolved {
        struct Automatic {};
        struct Fixed {
            double speed = 0;
        };
        struct Temperature {
            TemperatureInput input;
            const Curve& curve;
        };
        struct Load {
            const Curve& curve;
        };
        std::variant<Fixed, Temperature, Load, Automatic> value;
    };

    static Needs needs(const Action& action, std::span<const Profile> profiles, int minute);
    /// Callers pass depth 0; a schedule reached from inside a schedule runs nothing.
    static Resolved resolve(const Action& action, std::span<const Profile> profiles, int minute,
                            int depth);

    /// One control tick.
    Target target(const Action& action, std::span<const Profile> profiles, const Inputs& inputs);
    bool safetyEngaged() const { return latch.engaged(); }

  private:
    Hysteresis temperature{temperatureBand};
    Hysteresis load{loadBand};
    SafetyLatch latch;
};

} // namespace tervale
