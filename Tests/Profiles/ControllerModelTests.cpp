#include "Profiles/Controller.h"
#include "Profiles/RandomValues.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <vector>

namespace tervale {
namespace {

/// The controller formulated a second time, slowly: it remembers every reading it was ever given,
/// and works out what they came to anew at each tick.
class SlowController {
  public:
    Target target(const Action& action, const std::vector<Profile>& profiles,
                  const Inputs& inputs) {
        hottest.push_back(hottestOf(inputs));
        if (isTooHot())
            return target::Speed{1};
        const Action running = actionNow(action, profiles, inputs.minuteOfDay);
        if (const auto* fixed = std::get_if<action::Fixed>(&running))
            return target::Speed{fixed->speed};
        const auto* chosen = std::get_if<action::Profile>(&running);
        const Profile* profile = chosen ? named(profiles, chosen->id) : nullptr;
        if (!profile)
            return target::Automatic{};
        if (const auto* temperature = std::get_if<kind::Temperature>(&profile->kind))
            return follow(inputs.temperatures.at(temperature->input), temperatures, 3,
                          temperature->curve);
        if (const auto* load = std::get_if<kind::Load>(&profile->kind))
            return follow(inputs.load, loads, 10, load->curve);
        return target::Automatic{};
    }

  private:
    static std::optional<double> hottestOf(const Inputs& inputs) {
        std::vector<double> values;
        for (const SensorGroup group : {SensorGroup::cpu, SensorGroup::gpu})
            if (const auto value = inputs.temperatures.at(TemperatureInput::hottestOf(group)))
                values.push_back(*value);
        return values.empty() ? std::nullopt : std::optional(*std::ranges::max_element(values));
    }
    /// The last reading outside the band decides.
    bool isTooHot() const {
        for (auto reading = hottest.rbegin(); reading != hottest.rend(); ++reading)
            if (*reading && (**reading >= 95 || **reading < 85))
                return **reading >= 95;
        return false;
    }
    static const Profile* named(const std::vector<Profile>& profiles, const UUID& id) {
        for (const Profile& profile : profiles)
            if (profile.id == id)
                return &profile;
        return nullptr;
    }
    /// A schedule is written out minute by minute; the first window that has a minute keeps it.
    static Action actionNow(const Action& action, const std::vector<Profile>& profiles,
                            int minute) {
        const auto* chosen = std::get_if<action::Profile>(&action);
        const Profile* profile = chosen ? named(profiles, chosen->id) : nullptr;
        const auto* schedule = profile ? std::get_if<kind::Schedule>(&profile->kind) : nullptr;
        if (!schedule)
            return action;
        std::map<int, Action> day;
        for (const Window& window : schedule->windows) {
            int each = static_cast<int>(window.start);
            do {
                day.try_emplace(each, window.action);
                each = (each + 1) % Profile::minutesPerDay;
            } while (each != window.end);
        }
        return day.contains(minute) ? day.at(minute) : Action(action::Automatic{});
    }
    /// A one-sided dead band keeps the value between the reading and the reading plus the band.
    static Target follow(std::optional<double> reading, std::vector<double>& readings, double band,
                         const Curve& curve) {
        if (!reading)
            return target::Automatic{};
        readings.push_back(*reading);
        double value = readings.front();
        for (const double each : readings)
            value = std::clamp(value, each, each + band);
        return target::Speed{speedOf(curve, value)};
    }
    static double speedOf(const Curve& curve, double x) {
        const std::vector<CurvePoint>& points = curve.points;
        if (x <= points.front().x)
            return points.front().speed;
        for (std::size_t index = 1; index < points.size(); ++index) {
            const CurvePoint& left = points[index - 1];
            const CurvePoint& right = points[index];
            if (x <= right.x) {
                const double share = (x - left.x) / (right.x - left.x);
                return (1 - share) * left.speed + share * right.speed;
            }
        }
        return points.back().speed;
    }

    std::vector<std::optional<double>> hottest;
    std::vector<double> temperatures;
    std::vector<double> loads;
};

class ControllerModel : public testing::TestWithParam<std::uint64_t> {
  protected:
    Curve curve() {
        Curve made;
        for (auto x = values.below(40); made.points.size() < 5; x += 1 + values.below(25))
            made.points.push_back({static_cast<double>(x), values.fraction()});
        return made;
    }
    Action action(const std::vector<Profile>& profiles) {
        switch (values.below(4)) {
        case 0:
            return action::Automatic{};
        case 1:
            return action::Fixed{values.fraction()};
        default:
            return action::Profile{
                values.below(8) == 0 ? values.id() : profiles[values.below(profiles.size())].id};
        }
    }
    std::int64_t minute() { return static_cast<std::int64_t>(values.below(48) * 30); }
    std::vector<Profile> someProfiles() {
        std::vector<Profile> profiles;
        for (int count = 0; count < 3; ++count)
            profiles.push_back({values.id(), "t", kind::Temperature{values.input(), curve()}});
        for (int count = 0; count < 2; ++count)
            profiles.push_back({values.id(), "l", kind::Load{curve()}});
        for (int count = 0; count < 3; ++count) {
            kind::Schedule schedule;
            for (std::size_t windows = values.below(5); windows > 0; --windows)
                schedule.windows.push_back({minute(), minute(), action(profiles)});
            profiles.push_back({values.id(), "s", schedule});
        }
        return profiles;
    }
    Inputs inputs(double around) {
        Inputs made;
        for (const TemperatureInput input : allTemperatureInputs)
            if (values.below(10) != 0)
                made.temperatures.set(input, around + 12 * values.fraction());
        if (values.below(10) != 0)
            made.load = 100 * values.fraction();
        made.minuteOfDay = static_cast<int>(values.below(Profile::minutesPerDay));
        return made;
    }

    test::RandomValues values{GetParam()};
};

TEST_P(ControllerModel, DoesWhatTheSlowOneDoes) {
    Controller controller;
    SlowController slow;
    const std::vector<Profile> profiles = someProfiles();
    Action selected = action(profiles);
    double around = 60;
    for (int tick = 0; tick < 400; ++tick) {
        if (values.below(20) == 0)
            selected = action(profiles);
        around = std::clamp(around + 6 * (values.fraction() - 0.5), 40.0, 92.0);
        const Inputs now = inputs(around);
        const Target expected = slow.target(selected, profiles, now);
        const Target target = controller.target(selected, profiles, now);
        ASSERT_EQ(target.index(), expected.index()) << "tick " << tick;
        if (const auto* speed = std::get_if<target::Speed>(&target)) {
            ASSERT_NEAR(speed->fraction, std::get<target::Speed>(expected).fraction, 1e-9)
                << "tick " << tick;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ControllerModel, testing::Range<std::uint64_t>(1, 51));

} // namespace
} // namespace tervale
