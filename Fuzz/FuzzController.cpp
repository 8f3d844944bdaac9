#include "RubbishRegistry.h"
#include "SMC/SMC.h"

#include <cmath>
#include <set>

using namespace tervale;

namespace {

/// Only the controller's own error may come out, and it says something.
template <class Attempt>
void attempt(Attempt what) {
    try {
        what();
    } catch (const SMCError& error) {
        precondition(!error.description.empty(), "an error without a reason");
    }
}

void use(SMC& smc, FuzzedBytes& input) {
    switch (input.below(9)) {
    case 0:
        attempt([&] {
            for (const TemperatureSensor& sensor : smc.temperatureSensors())
                precondition(sensor.key.size() == 4 && SensorGroup::of(sensor.key) == sensor.group,
                             "a sensor of another group");
        });
        break;
    case 1: {
        const auto reading = smc.temperature({"Tp01", SensorGroup::cpu});
        precondition(!reading || TemperatureSensor::plausible.contains(*reading),
                     "a temperature that nobody believes");
        break;
    }
    case 2:
        attempt([&] {
            const Fan fan = smc.fan(static_cast<std::int64_t>(input.below(4)));
            precondition(fan.index >= 0 && fan.index < 4, "another fan than asked for");
        });
        break;
    case 3:
        // Only what lies within the limits that the controller told is written.
        attempt([&] { smc.setSpeed(static_cast<std::int64_t>(input.below(4)), input.word()); });
        break;
    case 4:
        attempt([&] { smc.setAuto(std::vector<std::int64_t>{0, 1}); });
        break;
    case 5:
        attempt([&] {
            const SMC::Info info = smc.info(input.text(5));
            precondition(info.size <= 32, "a value that no key holds");
            precondition(info.type.size() == 4 || info.type == "?", "a type that no key has");
        });
        break;
    case 6:
        attempt([&] { smc.write("F0Tg", static_cast<double>(input.word())); });
        break;
    case 7:
        attempt([&] { smc.key(static_cast<std::int64_t>(input.below(20))); });
        break;
    default:
        smc.modeKey(static_cast<std::int64_t>(input.below(10)));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedBytes input(data, size);
    RubbishRegistry registry(input);
    attempt([&] {
        SMC smc(registry);
        while (!input.empty())
            use(smc, input);
    });
    return 0;
}
