#include "Profiles/Controller.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <vector>

using namespace tervale;

namespace {

constexpr auto cpuAverage = TemperatureInput::averageOf(SensorGroup::cpu);
constexpr auto cpuHottest = TemperatureInput::hottestOf(SensorGroup::cpu);

const Curve curve{{{40, 0.2}, {50, 0.3}, {60, 0.5}, {70, 0.6}, {80, 1.0}}};
const std::vector<Profile> profiles{
    {UUID{{1}}, "A name too long to be kept within the string", kind::Load{curve}},
    {UUID{{2}}, "Another name that is kept on the heap", kind::Temperature{cpuAverage, curve}},
    {UUID{{3}}, "A schedule of the curve above, in a single window",
     kind::Schedule{{{0, 1, action::Fixed{0.5}}, {1, 0, action::Profile{UUID{{2}}}}}}}};

/// The allocations().count of one whole tick: what must be sampled, the readings, the target.
std::size_t allocationsOfTick(Controller& controller, const Action& action, double celsius) {
    const std::size_t before = allocations().count;
    const Needs needs = Controller::needs(action, profiles, 720);
    Inputs inputs{{{cpuHottest, celsius + 10}}, {}, 720};
    if (needs.temperatures.contains(cpuAverage))
        inputs.temperatures.set(cpuAverage, celsius);
    if (needs.load)
        inputs.load = celsius;
    const Target target = controller.target(action, profiles, inputs);
    const std::size_t counted = allocations().count - before;
    EXPECT_TRUE(std::holds_alternative<target::Speed>(target));
    return counted;
}

} // namespace

TEST(ControllerTick, AllocatesNothing) {
    Controller controller;
    for (const double celsius : {60.0, 58.0, 40.0, 86.0, 70.0}) {
        for (const Profile& profile : profiles)
            EXPECT_EQ(allocationsOfTick(controller, action::Profile{profile.id}, celsius), 0U);
        EXPECT_EQ(allocationsOfTick(controller, action::Fixed{0.4}, celsius), 0U);
    }
}

TEST(CountOfAllocations, SeesACopyOfACurve) {
    const std::size_t before = allocations().count;
    const auto copy = std::make_unique<Curve>(curve);
    EXPECT_EQ(allocations().count - before, 2U);
    EXPECT_EQ(*copy, curve);
}
