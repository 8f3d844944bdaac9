#include "Simulation/SensorBank.h"

#include "Base/Precondition.h"
#include "Simulation/SensorKeys.h"

#include <algorithm>
#include <array>

namespace tervale {

namespace {

/// What a sensor reads while it is gone.
constexpr double nothing = 0.0;

/// Which groups the sensors belong to, over and over: every group early, processor cores most.
constexpr std::array<SensorGroup::Case, 25> pattern{
    SensorGroup::cpu,   SensorGroup::gpu, SensorGroup::memory, SensorGroup::ssd, SensorGroup::power,
    SensorGroup::other, SensorGroup::cpu, SensorGroup::gpu,    SensorGroup::cpu, SensorGroup::cpu,
    SensorGroup::gpu,   SensorGroup::cpu, SensorGroup::cpu,    SensorGroup::gpu, SensorGroup::power,
    SensorGroup::cpu,   SensorGroup::gpu, SensorGroup::memory, SensorGroup::cpu, SensorGroup::other,
    SensorGroup::cpu,   SensorGroup::gpu, SensorGroup::cpu,    SensorGroup::cpu, SensorGroup::other,
};

/// How much cooler and warmer than their part the sensors of a group are, as shares of the part's
/// warmth above the room. Most cores' sensors lie beside the hot spot rather than on it.
ClosedRange sharesOf(SensorGroup group) {
    switch (group) {
    case SensorGroup::cpu:
        return {-0.16, 0.08};
    case SensorGroup::gpu:
        return {-0.12, 0.07};
    case SensorGroup::memory:
        return {-0.08, 0.08};
    case SensorGroup::ssd:
        return {-0.12, 0.12};
    case SensorGroup::power:
        return {-0.15, 0.15};
    case SensorGroup::other:
        return {-0.4, 0.4};
    }
    precondition(false, "a sensor group that does not exist was used");
    return {};
}

} // namespace

double SensorBank::Sensor::goal(const HeatModel& heat) const {
    const double part = heat.temperature(group);
    return part + share * (part - heat.room());
}

SensorBank::SensorBank(std::size_t count, RandomSource& random) {
    precondition(count <= most, "more sensors were asked for than there are names");
    std::array<std::size_t, SensorGroup::allCases.size()> used{};
    for (std::size_t i = 0; i < count; ++i) {
        const SensorGroup::Case group = pattern[i % pattern.size()];
        const ClosedRange shares = sharesOf(group);
        sensors.push_back({.key = sensorKey(group, used[group]++),
                           .group = group,
                           .share = random.between(shares.lower, shares.upper),
                           .timeConstant = random.between(0.8, 4.0),
                           .noise = random.between(0.2, 1.2),
                           .value = 0,
                           .gone = 0});
    }
}

double SensorBank::reading(std::size_t index) const {
    const Sensor& sensor = sensors.at(index);
    return sensor.gone > 0 ? nothing : sensor.value;
}

double SensorBank::hottest() const {
    double hottest = 0;
    for (const Sensor& sensor : sensors)
        if (sensor.group == SensorGroup::cpu || sensor.group == SensorGroup::gpu)
            hottest = std::max(hottest, sensor.value);
    return hottest;
}

void SensorBank::settle(const HeatModel& heat) {
    for (Sensor& sensor : sensors)
        sensor.value = sensor.goal(heat);
}

void SensorBank::advance(double seconds, const HeatModel& heat, Presence presence,
                         RandomSource& random) {
    constexpr double chanceToGo = 0.006;
    for (Sensor& sensor : sensors) {
        const double goal = sensor.goal(heat) + random.around0(sensor.noise);
        sensor.value += (goal - sensor.value) * std::min(seconds / sensor.timeConstant, 1.0);
        sensor.gone = std::max(sensor.gone - seconds, 0.0);
        if (presence == Presence::comeAndGo && random.uniform() < chanceToGo * seconds)
            sensor.gone = random.between(5, 30);
    }
}

} // namespace tervale
