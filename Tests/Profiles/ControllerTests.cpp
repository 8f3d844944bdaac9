#include "Profiles/Controller.h"
#include "Support/NotANumber.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <vector>

using namespace tervale;

namespace {

using tervale::test::notANumber;
constexpr auto cpuHottest = TemperatureInput::hottestOf(SensorGroup::cpu);
constexpr auto gpuHottest = TemperatureInput::hottestOf(SensorGroup::gpu);
constexpr auto ssdAverage = TemperatureInput::averageOf(SensorGroup::ssd);

/// Gives back what it is fed, in hundredths, so that a target shows the filtered reading.
const Curve hundredths{{{0, 0.0}, {100, 1.0}}};
const Curve steep{{{0, 0.0}, {50, 1.0}}};

const Action curveOfSSD = action::Profile{UUID{{1}}};
const Action curveOfCPU = action::Profile{UUID{{2}}};
const Action curveOfLoad = action::Profile{UUID{{3}}};
const Action otherCurveOfLoad = action::Profile{UUID{{4}}};
const Action nightAndDay = action::Profile{UUID{{5}}};
const Action nested = action::Profile{UUID{{6}}};
const Action withGaps = action::Profile{UUID{{7}}};
const Action missing = action::Profile{UUID{{99}}};

const std::vector<Profile> profiles{
    {UUID{{1}}, "SSD", kind::Temperature{ssdAverage, hundredths}},
    {UUID{{2}}, "CPU", kind::Temperature{cpuHottest, hundredths}},
    {UUID{{3}}, "Load", kind::Load{hundredths}},
    {UUID{{4}}, "Other load", kind::Load{steep}},
    {UUID{{5}}, "Night and day",
     kind::Schedule{{{0, 480, curveOfSSD}, {480, 0, action::Fixed{0.4}}}}},
    {UUID{{6}}, "Nested", kind::Schedule{{{0, 0, nightAndDay}}}},
    {UUID{{7}}, "With gaps",
     kind::Schedule{{{60, 120, action::Fixed{0.1}},
                     {100, 200, curveOfLoad},
                     {300, 400, action::Automatic{}},
                     {350, 500, action::Fixed{0.9}},
                     {600, 700, missing}}}},
    {UUID{{1}}, "Hidden by the first of its id", kind::Load{steep}}};

double fraction(const Target& target) {
    const auto* speed = std::get_if<target::Speed>(&target);
    return speed ? speed->fraction : notANumber;
}

Inputs hottestCPU(double celsius, int minute = 0) {
    return {{{cpuHottest, celsius}}, {}, minute};
}
Inputs ssd(double celsius) {
    return {{{ssdAverage, celsius}}, {}, 0};
}
Inputs loaded(std::optional<double> percent) {
    return {{}, percent, 0};
}

const Target automatic = target::Automatic{};
const Target fullSpeed = target::Speed{1.0};

} // namespace

TEST(ControllerNeeds, AreTheSafetyInputsForEverySelection) {
    const Needs safetyOnly{{cpuHottest, gpuHottest}, false};
    EXPECT_EQ(Controller::safetyInputs, safetyOnly.temperatures);
    for (const Action& action :
         {Action{action::Automatic{}}, Action{action::Fixed{0.3}}, missing, nested, curveOfCPU})
        EXPECT_EQ(Controller::needs(action, profiles, 0), safetyOnly);
}

TEST(ControllerNeeds, AddWhatTheCurrentWindowNeeds) {
    const Needs withSSD{{cpuHottest, gpuHottest, ssdAverage}, false};
    const Needs withLoad{{cpuHottest, gpuHottest}, true};
    const Needs safetyOnly{{cpuHottest, gpuHottest}, false};
    EXPECT_EQ(Controller::needs(curveOfSSD, profiles, 0), withSSD);
    EXPECT_EQ(Controller::needs(curveOfLoad, profiles, 0), withLoad);
    EXPECT_EQ(Controller::needs(nightAndDay, profiles, 479), withSSD);
    EXPECT_EQ(Controller::needs(nightAndDay, profiles, 480), safetyOnly);
    EXPECT_EQ(Controller::needs(withGaps, profiles, 130), withLoad);
}

TEST(ControllerResolve, BorrowsTheCurveOfTheFirstProfileOfItsId) {
    const auto resolved = Controller::resolve(curveOfSSD, profiles, 0, 0);
    const auto* temperature = std::get_if<Controller::Resolved::Temperature>(&resolved.value);
    ASSERT_TRUE(temperature);
    EXPECT_EQ(temperature->input, ssdAverage);
    EXPECT_EQ(&temperature->curve, &std::get<kind::Temperature>(profiles[0].kind).curve);
}

TEST(ControllerResolve, FollowsASchedulesWindowOneLevelDeep) {
    using Resolved = Controller::Resolved;
    const auto at = [](const Action& action, int minute, int depth = 0) {
        return Controller::resolve(action, profiles, minute, depth).value;
    };
    EXPECT_TRUE(std::holds_alternative<Resolved::Temperature>(at(nightAndDay, 0)));
    EXPECT_TRUE(std::holds_alternative<Resolved::Fixed>(at(nightAndDay, 1439)));
    EXPECT_TRUE(std::holds_alternative<Resolved::Automatic>(at(nightAndDay, 0, 1)));
    EXPECT_TRUE(std::holds_alternative<Resolved::Automatic>(at(nested, 0)));
    EXPECT_TRUE(std::holds_alternative<Resolved::Load>(at(curveOfLoad, 0, 1)));
}

TEST(ControllerTarget, IsWhatAFixedOrAutomaticSelectionSays) {
    Controller controller;
    EXPECT_EQ(controller.target(action::Fixed{0.35}, profiles, {}), Target{target::Speed{0.35}});
    EXPECT_EQ(controller.target(action::Automatic{}, profiles, {}), automatic);
    EXPECT_EQ(controller.target(missing, profiles, {}), automatic);
    EXPECT_EQ(controller.target(curveOfSSD, {}, ssd(50)), automatic);
}

TEST(ControllerTarget, IsFullSpeedFromTooHotUntilClearlyCooler) {
    for (const Action& action : {Action{action::Automatic{}}, Action{action::Fixed{0.3}},
                                 curveOfCPU, curveOfLoad, nightAndDay, nested, missing}) {
        Controller controller;
        EXPECT_EQ(controller.target(action, profiles, hottestCPU(96, 600)), fullSpeed);
        EXPECT_TRUE(controller.safetyEngaged());
        EXPECT_EQ(controller.target(action, profiles, hottestCPU(90, 600)), fullSpeed);
        EXPECT_EQ(controller.target(action, profiles, {{}, {}, 600}), fullSpeed);
        const Target released = controller.target(action, profiles, hottestCPU(84.9, 600));
        EXPECT_FALSE(controller.safetyEngaged());
        EXPECT_EQ(released, Controller().target(action, profiles, hottestCPU(84.9, 600)));
        EXPECT_NE(released, fullSpeed);
    }
}

TEST(ControllerTarget, MindsTheHotterOfCPUAndGPUOnly) {
    Controller controller;
    const Action off = action::Automatic{};
    controller.target(off, profiles, {{{cpuHottest, 50}, {gpuHottest, 95}}, {}, 0});
    EXPECT_TRUE(controller.safetyEngaged());
    controller.target(off, profiles, {{{cpuHottest, 85}, {gpuHottest, 40}}, {}, 0});
    EXPECT_TRUE(controller.safetyEngaged());
    controller.target(off, profiles, {{{gpuHottest, 40}}, {}, 0});
    EXPECT_FALSE(controller.safetyEngaged());
    controller.target(
        off, profiles,
        {{{TemperatureInput::averageOf(SensorGroup::cpu), 120}, {ssdAverage, 120}}, {}, 0});
    EXPECT_FALSE(controller.safetyEngaged());
}

TEST(ControllerTarget, IsNotFooledByOneReadingThatIsNoNumber) {
    Controller controller;
    const Action off = action::Automatic{};
    EXPECT_EQ(
        controller.target(off, profiles, {{{cpuHottest, notANumber}, {gpuHottest, 96}}, {}, 0}),
        fullSpeed);
    EXPECT_EQ(controller.target(off, profiles,
                                {{{cpuHottest, notANumber}, {gpuHottest, notANumber}}, {}, 0}),
              fullSpeed);
    EXPECT_EQ(
        controller.target(off, profiles, {{{cpuHottest, 80}, {gpuHottest, notANumber}}, {}, 0}),
        automatic);
    EXPECT_EQ(
        controller.target(off, profiles, {{{cpuHottest, 96}, {gpuHottest, notANumber}}, {}, 0}),
        fullSpeed);
}

TEST(ControllerTarget, HoldsTheTemperatureOfACurve) {
    Controller controller;
    const auto next = [&](double celsius) {
        return fraction(controller.target(curveOfSSD, profiles, ssd(celsius)));
    };
    EXPECT_EQ(next(60), 0.6);
    EXPECT_EQ(next(58), 0.6);
    EXPECT_EQ(next(56.5), 0.595);
    EXPECT_EQ(next(61), 0.61);
}

TEST(ControllerTarget, HoldsTheLoadOfACurve) {
    Controller controller;
    const auto next = [&](double percent) {
        return fraction(controller.target(curveOfLoad, profiles, loaded(percent)));
    };
    EXPECT_EQ(next(50), 0.5);
    EXPECT_EQ(next(41), 0.5);
    EXPECT_EQ(next(40), 0.5);
    EXPECT_EQ(next(39), 0.49);
}

TEST(ControllerTarget, SharesOneHysteresisAmongTheCurvesOfAKind) {
    Controller controller;
    controller.target(curveOfSSD, profiles, ssd(60));
    EXPECT_EQ(fraction(controller.target(curveOfCPU, profiles, hottestCPU(58))), 0.6);
    // Load is held apart from temperature.
    EXPECT_EQ(fraction(controller.target(curveOfLoad, profiles, loaded(20))), 0.2);
    EXPECT_EQ(fraction(controller.target(otherCurveOfLoad, profiles, loaded(12))), 0.4);
    controller.target(action::Automatic{}, profiles, {});
    EXPECT_EQ(fraction(controller.target(curveOfSSD, profiles, ssd(57))), 0.6);
}

TEST(ControllerTarget, IsAutomaticAndForgetsNothingWithoutTheReading) {
    Controller controller;
    controller.target(curveOfSSD, profiles, ssd(60));
    controller.target(curveOfLoad, profiles, loaded(50));
    EXPECT_EQ(controller.target(curveOfSSD, profiles, hottestCPU(20)), automatic);
    EXPECT_EQ(controller.target(curveOfLoad, profiles, loaded(std::nullopt)), automatic);
    EXPECT_EQ(fraction(controller.target(curveOfSSD, profiles, ssd(58))), 0.6);
    EXPECT_EQ(fraction(controller.target(curveOfLoad, profiles, loaded(45))), 0.5);
}

TEST(ControllerTarget, LeavesTheHysteresisAloneWhileTheLatchIsEngaged) {
    Controller controller;
    EXPECT_EQ(fraction(controller.target(curveOfCPU, profiles, hottestCPU(60))), 0.6);
    EXPECT_EQ(controller.target(curveOfCPU, profiles, hottestCPU(99)), fullSpeed);
    EXPECT_EQ(fraction(controller.target(curveOfCPU, profiles, hottestCPU(58))), 0.6);
}

TEST(ControllerTarget, FollowsTheScheduleOfTheMinute) {
    Controller controller;
    const auto at = [&](const Action& action, int minute) {
        return controller.target(action, profiles, {{{ssdAverage, 70}}, 30.0, minute});
    };
    EXPECT_EQ(fraction(at(nightAndDay, 479)), 0.7);
    EXPECT_EQ(fraction(at(nightAndDay, 480)), 0.4);
    EXPECT_EQ(at(nested, 0), automatic);
    EXPECT_EQ(at(withGaps, 59), automatic);
    EXPECT_EQ(fraction(at(withGaps, 110)), 0.1) << "the earlier window in the list wins";
    EXPECT_EQ(fraction(at(withGaps, 120)), 0.3);
    EXPECT_EQ(at(withGaps, 360), automatic);
    EXPECT_EQ(fraction(at(withGaps, 400)), 0.9);
    EXPECT_EQ(at(withGaps, 650), automatic);
}

TEST(ControllerTarget, NeverLeavesTheRangeForValidProfiles) {
    std::mt19937 random(4);
    std::uniform_real_distribution<double> celsius(5, 130);
    const std::vector<Action> actions{action::Automatic{}, action::Fixed{0.3}, curveOfSSD,
                                      curveOfCPU,          curveOfLoad,        nightAndDay,
                                      otherCurveOfLoad,    withGaps,           missing};
    Controller controller;
    for (int i = 0; i < 20000; ++i) {
        Inputs inputs{{}, {}, static_cast<int>(random() % 1440)};
        for (const TemperatureInput input : {cpuHottest, gpuHottest, ssdAverage}) {
            if (random() % 4 != 0)
                inputs.temperatures.set(input, celsius(random));
        }
        if (random() % 4 != 0)
            inputs.load = static_cast<double>(random() % 101);
        const Target target =
            controller.target(actions[random() % actions.size()], profiles, inputs);
        if (target == automatic)
            continue;
        ASSERT_GE(fraction(target), 0.0);
        ASSERT_LE(fraction(target), 1.0);
    }
}
