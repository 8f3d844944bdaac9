#include "Profiles/Profile.h"
#include "Profiles/TemperatureInputs.h"
#include "Support/NotANumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <unordered_set>

using namespace tervale;

namespace {

using tervale::test::notANumber;
const Curve rising{{{40, 0.2}, {60, 0.5}, {80, 1.0}}};

} // namespace

TEST(TemperatureInput, IsTheHottestOrTheAverageOfAGroup) {
    EXPECT_EQ(TemperatureInput::hottestOf(SensorGroup::ssd),
              (TemperatureInput{SensorGroup::ssd, false}));
    EXPECT_EQ(TemperatureInput::averageOf(SensorGroup::ssd),
              (TemperatureInput{SensorGroup::ssd, true}));
}

TEST(TemperatureInput, HasTheAverageAsTheHeadlineOfCPUAndGPUOnly) {
    for (const SensorGroup group : SensorGroup::allCases) {
        const bool average = group == SensorGroup::cpu || group == SensorGroup::gpu;
        EXPECT_EQ(TemperatureInput::averaged(group), average) << group.title();
        EXPECT_EQ(TemperatureInput::headline(group), (TemperatureInput{group, average}));
    }
}

TEST(TemperatureInput, IsTitledAfterItsGroupAndReading) {
    EXPECT_EQ(TemperatureInput::averageOf(SensorGroup::cpu).title(), "CPU average");
    EXPECT_EQ(TemperatureInput::hottestOf(SensorGroup::ssd).title(), "SSD hottest");
    EXPECT_EQ(TemperatureInput::headline(SensorGroup::memory).title(), "Memory hottest");
    EXPECT_EQ(TemperatureInput::headline(SensorGroup::gpu).title(), "GPU average");
    EXPECT_EQ(TemperatureInput::hottestOf(SensorGroup::power).title(), "Power hottest");
    EXPECT_EQ(TemperatureInput::averageOf(SensorGroup::other).title(), "Other average");
}

TEST(TemperatureInput, HashesEachInputApart) {
    std::unordered_set<TemperatureInput> inputs;
    std::unordered_set<std::size_t> hashes;
    for (std::size_t position = 0; position < temperatureInputCount; ++position) {
        inputs.insert(temperatureInputAt(position));
        hashes.insert(std::hash<TemperatureInput>{}(temperatureInputAt(position)));
    }
    EXPECT_EQ(inputs.size(), 12U);
    EXPECT_EQ(hashes.size(), 12U);
    EXPECT_TRUE(inputs.contains(TemperatureInput::averageOf(SensorGroup::gpu)));
}

TEST(TemperatureInputSet, HoldsWhatWasInserted) {
    TemperatureInputSet set{TemperatureInput::averageOf(SensorGroup::ssd)};
    EXPECT_TRUE(set.containsGroup(SensorGroup::ssd));
    EXPECT_FALSE(set.contains(TemperatureInput::hottestOf(SensorGroup::ssd)));
    EXPECT_FALSE(set.containsGroup(SensorGroup::other));
    set.insert(TemperatureInput::averageOf(SensorGroup::other));
    EXPECT_TRUE(set.containsGroup(SensorGroup::other));
    EXPECT_EQ(set, (TemperatureInputSet{TemperatureInput::averageOf(SensorGroup::other),
                                        TemperatureInput::averageOf(SensorGroup::ssd)}));
}

TEST(TemperatureInputs, AreFoundAtTheirPositions) {
    for (std::size_t position = 0; position < temperatureInputCount; ++position)
        EXPECT_EQ(positionOf(temperatureInputAt(position)), position);
}

TEST(TemperatureReadings, HoldWhatWasSetUntilItIsRemoved) {
    TemperatureReadings readings{{TemperatureInput::hottestOf(SensorGroup::cpu), 51.5}};
    EXPECT_EQ(readings.at(TemperatureInput::hottestOf(SensorGroup::cpu)), 51.5);
    EXPECT_EQ(readings.at(TemperatureInput::averageOf(SensorGroup::cpu)), std::nullopt);
    readings.remove(TemperatureInput::hottestOf(SensorGroup::cpu));
    EXPECT_EQ(readings, TemperatureReadings());
}

TEST(Curve, WithoutPointsIsZero) {
    for (const double x : {-10.0, 0.0, 50.0, notANumber})
        EXPECT_EQ(Curve{}.speed(x), 0.0);
}

TEST(Curve, WithOnePointIsFlat) {
    for (const double x : {-10.0, 50.0, 50.1, 500.0, notANumber})
        EXPECT_EQ((Curve{{{50, 0.7}}}.speed(x)), 0.7);
}

TEST(Curve, IsFlatOutsideItsPoints) {
    EXPECT_EQ(rising.speed(30), 0.2);
    EXPECT_EQ(rising.speed(-std::numeric_limits<double>::infinity()), 0.2);
    EXPECT_EQ(rising.speed(95), 1.0);
    EXPECT_EQ(rising.speed(std::numeric_limits<double>::infinity()), 1.0);
}

TEST(Curve, IsStraightBetweenItsPoints) {
    EXPECT_EQ(rising.speed(50), 0.2 + (10.0 * (0.5 - 0.2)) / 20.0);
    EXPECT_DOUBLE_EQ(rising.speed(50), 0.35);
    EXPECT_EQ(rising.speed(70), 0.75);
}

TEST(Curve, MeetsItsPointsExactly) {
    EXPECT_EQ(rising.speed(40), 0.2);
    EXPECT_EQ(rising.speed(60), 0.5);
    EXPECT_EQ(rising.speed(80), 1.0);
}

TEST(Curve, TakesTheFirstPointAtASharedX) {
    const Curve step{{{50, 0.3}, {50, 0.6}, {50, 0.9}}};
    EXPECT_EQ(step.speed(49), 0.3);
    EXPECT_EQ(step.speed(50), 0.3);
    EXPECT_EQ(step.speed(51), 0.9);
    // A knot belongs to the segment that ends there, so a step inside is taken from below.
    EXPECT_EQ((Curve{{{0, 0.0}, {50, 0.3}, {50, 0.6}, {90, 0.9}}}.speed(50)), 0.3);
}

TEST(Curve, HasTheLastSpeedForNaN) {
    EXPECT_EQ(rising.speed(notANumber), 1.0);
}

TEST(Curve, WalksUnorderedPointsAsTheyAreStored) {
    const Curve unordered{{{40, 0.2}, {90, 0.6}, {60, 0.4}}};
    EXPECT_EQ(unordered.speed(50), 0.2 + (10.0 * (0.6 - 0.2)) / 50.0);
    EXPECT_EQ(unordered.speed(60), 0.4) << "the last point is looked at before the walk";
    EXPECT_EQ(unordered.speed(70), 0.4);
}

TEST(Curve, DoesNotClamp) {
    EXPECT_EQ((Curve{{{0, -1.0}, {10, 3.0}}}.speed(10)), 3.0);
    EXPECT_EQ((Curve{{{0, -1.0}, {10, 3.0}}}.speed(-5)), -1.0);
    EXPECT_EQ((Curve{{{0, -1.0}, {10, 3.0}}}.speed(7.5)), 2.0);
}

TEST(Curve, StaysBetweenTheSpeedsOfValidPoints) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, 120);
    std::uniform_real_distribution<double> speed(0, 1);
    for (std::size_t round = 0; round < 2000; ++round) {
        Curve curve;
        const std::size_t count = 2 + round % 7;
        double at = x(random) / 10;
        while (curve.points.size() < count) {
            curve.points.push_back({at, speed(random)});
            at += 0.01 + x(random) / 10;
        }
        const double result = curve.speed(x(random));
        EXPECT_GE(result, 0.0);
        EXPECT_LE(result, 1.0);
    }
}

TEST(Window, CoversFromItsStartUpToItsEnd) {
    const Window day{480, 1020, action::Automatic{}};
    EXPECT_FALSE(day.covers(479));
    EXPECT_TRUE(day.covers(480));
    EXPECT_TRUE(day.covers(1019));
    EXPECT_FALSE(day.covers(1020));
}

TEST(Window, CrossesMidnightWhenItsEndComesFirst) {
    const Window night{1320, 420, action::Automatic{}};
    for (int minute = 0; minute < Profile::minutesPerDay; ++minute)
        EXPECT_EQ(night.covers(minute), minute >= 1320 || minute <= 419) << minute;
}

TEST(Window, CoversTheWholeDayWhenItStartsAtItsEnd) {
    const Window always{60, 60, action::Automatic{}};
    for (int minute = 0; minute < Profile::minutesPerDay; ++minute)
        EXPECT_TRUE(always.covers(minute)) << minute;
}

TEST(FindProfile, TakesTheFirstOfTheSameId) {
    const std::vector<Profile> profiles{{UUID{{1}}, "one", kind::Load{}},
                                        {UUID{{2}}, "two", kind::Load{}},
                                        {UUID{{2}}, "three", kind::Load{}}};
    EXPECT_EQ(findProfile(profiles, UUID{{2}}), &profiles[1]);
    EXPECT_EQ(findProfile(profiles, UUID{{3}}), nullptr);
    EXPECT_EQ(findProfile({}, UUID{{1}}), nullptr);
}

TEST(Action, IsEqualAndHashesAlikeByItsPayload) {
    EXPECT_NE(Action{action::Fixed{0.5}}, Action{action::Fixed{0.6}});
    EXPECT_NE(Action{action::Automatic{}}, Action{action::Fixed{0}});
    const std::unordered_set<Action> actions{
        action::Automatic{}, action::Automatic{},        action::Fixed{0.0},
        action::Fixed{-0.0}, action::Profile{UUID{{1}}}, action::Profile{UUID{{1}}},
        action::Fixed{0.5},  action::Profile{UUID{{2}}}};
    EXPECT_EQ(actions.size(), 5U);
}

TEST(Curve, MeetsEveryPointExactlyWhereverItLies) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> wholeX(0, 120);
    std::uniform_int_distribution<int> percent(0, 100);
    for (int round = 0; round < 20000; ++round) {
        std::set<int> places;
        while (places.size() < 3)
            places.insert(wholeX(random));
        Curve curve;
        for (const int x : places)
            curve.points.push_back({static_cast<double>(x), percent(random) / 100.0});
        for (const CurvePoint& point : curve.points) {
            EXPECT_EQ(curve.speed(point.x), point.speed);
            EXPECT_LE(curve.speed(std::nextafter(point.x, 0.0)), 1.0);
            EXPECT_GE(curve.speed(std::nextafter(point.x, 200.0)), 0.0);
        }
    }
}
