#include "Agent/Agent.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "SMC/DelegatingRegistry.h"
#include "SMC/SMCCodec.h"
#include "SMC/SMCStructure.h"
#include "Simulation/RandomSource.h"
#include "Simulation/SimulatedClock.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <set>
#include <string>
#include <vector>

// What this program has allocated is counted, so it holds no other tests.

namespace {

std::size_t living = 0;
constexpr std::size_t header = alignof(std::max_align_t);

void* allocate(std::size_t size) {
    void* memory = std::malloc(size + header);
    if (!memory)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(memory) = size;
    living += size;
    return static_cast<std::byte*>(memory) + header;
}

void release(void* memory) {
    if (!memory)
        return;
    void* start = static_cast<std::byte*>(memory) - header;
    living -= *static_cast<std::size_t*>(start);
    std::free(start);
}

} // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
// The standard library's leads to the first one, that of a sanitizer does not.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    release(memory);
}

namespace tervale {
namespace {

/// A registry that tells which keys have been read.
class WatchedRegistry final : public DelegatingRegistry {
  public:
    using DelegatingRegistry::DelegatingRegistry;

    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override {
        const Status status =
            DelegatingRegistry::callStruct(connection, selector, request, response);
        const auto question = SMCStructure::fromBytes(request);
        if (status == 0 && question.command == static_cast<std::uint8_t>(SMCCommand::read) &&
            SMCStructure::fromBytes(response).result == 0)
            read.insert(SMCCodec::fourCCString(question.key));
        return status;
    }

    std::set<std::string> read;
};

/// Preferences on a disk that is full now and then.
class FullPreferences final : public Preferences {
  public:
    std::optional<Data> data(const std::string& key) const override { return kept.data(key); }
    bool contains(const std::string& key) const override { return kept.contains(key); }
    std::optional<std::string> setData(const std::string& key, const Data& data) override {
        return isFull ? std::optional<std::string>("No space left on device")
                      : kept.setData(key, data);
    }
    bool keepCopy(const std::string& key, const std::string& copy) override {
        return kept.keepCopy(key, copy);
    }
    std::vector<std::string> keys(const std::string& prefix) const override {
        return kept.keys(prefix);
    }
    void remove(const std::string& key) override { kept.remove(key); }

    bool isFull = false;

  private:
    InMemoryPreferences kept;
};

/// An agent in a heatwave, with faults at random.
class AgentsDay : public testing::Test {
  protected:
    AgentsDay() {
        for (const TemperatureSensor& sensor : checker.temperatureSensors())
            faultable.push_back(sensor.key);
        for (const char* key : {"F0Ac", "F0Tg", "F0Mn", "F0Mx", "F1Ac", "F1Tg", "F1Mn", "F1Mx"})
            fanKeys.emplace_back(key);
    }

    Fault someFault() {
        switch (random.below(5)) {
        case 0:
            return fault::Refused{132};
        case 1:
            return fault::RefusedValue{133};
        case 2:
            return fault::KernelError{static_cast<IORegistry::Status>(0xe00002d8)};
        case 3:
            return fault::DroppedOut{};
        default:
            return fault::Stuck{};
        }
    }
    void breakSomething() {
        const double chance = random.uniform();
        if (chance < 0.02)
            mac.inject(faultable[random.below(faultable.size())], someFault());
        else if (chance < 0.03)
            fanFaults.insert(fanKeys[random.below(fanKeys.size())]);
        else if (chance < 0.06)
            mac.heal(faultable[random.below(faultable.size())]);
        else if (chance < 0.08)
            fanFaults.clear();
        else if (chance < 0.081)
            mac.failEveryCall(static_cast<IORegistry::Status>(0xe00002d8));
        else if (chance < 0.2)
            mac.failEveryCall(std::nullopt);
        else if (chance < 0.21)
            preferences.isFull = !preferences.isFull;
    }
    void doSomething() {
        const double chance = random.uniform();
        if (chance < 0.005)
            bridge.send(command::Select{action::Fixed{random.uniform()}});
        else if (chance < 0.008)
            bridge.send(command::Select{action::Automatic{}});
        else if (chance < 0.01)
            bridge.send(command::Select{action::Profile{profiles[random.below(2)].id}});
        else if (chance < 0.012)
            bridge.send(command::StartTimer{action::Fixed{random.uniform()}, 600});
        else if (chance < 0.014)
            bridge.send(command::SaveProfiles{profiles});
        else if (chance < 0.016)
            bridge.send(command::SetLaunchAtLogin{chance < 0.015});
    }
    void second() {
        mac.advance(1);
        clock.advance(1);
        breakSomething();
        for (const std::string& key : fanKeys)
            mac.heal(key);
        for (const std::string& key : fanFaults)
            mac.inject(key, fault::KernelError{static_cast<IORegistry::Status>(0xe00002d8)});
        doSomething();
        watched.read.clear();
        agent.tick();
    }
    /// Whether the agent has read 95 °C or more from a sensor of the CPU or GPU in its last tick.
    bool hasReadHeat() {
        for (const std::string& key : watched.read) {
            const auto group = SensorGroup::of(key);
            if (!group || (*group != SensorGroup::cpu && *group != SensorGroup::gpu))
                continue;
            const auto reading = checker.temperature({key, *group});
            if (reading && *reading >= SafetyLatch::on)
                return true;
        }
        return false;
    }
    bool isSafe(std::int64_t index) {
        const Fan fan = checker.fan(index);
        return !fan.manual || fan.target >= fan.max - 0.5;
    }

    RandomSource random{2026};
    SimulatedMac mac{{.seed = 7, .scenario = Scenario::heatwave, .sensors = 12, .fillers = 0}};
    WatchedRegistry watched{mac};
    SMC checker{mac};
    SMC smc{watched};
    std::vector<std::string> faultable;
    std::vector<std::string> fanKeys;
    std::set<std::string> fanFaults;
    const std::vector<Profile> profiles{
        {UUID::random(), "By heat",
         kind::Temperature{TemperatureInput::hottestOf(SensorGroup::cpu), {{{40, 0}, {100, 0.6}}}}},
        {UUID::random(), "By load", kind::Load{{{{0, 0}, {100, 0.5}}}}}};
    SimulatedClock clock;
    InProcessNotificationCenter center;
    FullPreferences preferences;
    Bridge bridge{center};
    Agent agent{{smc, center, preferences, clock, [this] { return mac.load(); }}};
};

TEST_F(AgentsDay, NeverLeavesHotFansSlowAndNeedsNoMoreMemoryInTheEnd) {
    constexpr int hour = 3600;
    constexpr int day = 24 * hour;
    int hot = 0;
    std::size_t afterAnHour = 0;
    for (int passed = 1; passed <= day; ++passed) {
        second();
        if (hasReadHeat()) {
            ++hot;
            for (const std::string& key : fanKeys)
                mac.heal(key);
            mac.failEveryCall(std::nullopt);
            for (std::int64_t fan = 0; fan < 2; ++fan)
                ASSERT_TRUE(isSafe(fan)) << "fan " << fan << " after " << passed << " s";
        }
        if (passed == hour || passed == day) {
            // The faults that are in force now are part of what is allocated.
            fanFaults.clear();
            for (const std::string& key : faultable)
                mac.heal(key);
            preferences.isFull = false;
            bridge.send(command::SaveProfiles{profiles});
            for (int more = 0; more < 120; ++more) {
                mac.advance(1);
                clock.advance(1);
                agent.tick();
            }
            watched.read.clear();
        }
        if (passed == hour)
            afterAnHour = living;
    }
    RecordProperty("hot", hot);
    RecordProperty("living", static_cast<int>(living));
    RecordProperty("livingAfterAnHour", static_cast<int>(afterAnHour));
    EXPECT_GT(hot, 100) << "the day was too cool to show anything";
    EXPECT_LE(living, afterAnHour + 1000);
}

} // namespace
} // namespace tervale
