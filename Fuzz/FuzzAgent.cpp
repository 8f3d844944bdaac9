#include "Agent/Agent.h"
#include "JSON/JSON.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "RubbishRegistry.h"
#include "Simulation/SimulatedClock.h"

using namespace tervale;

namespace {

bool isWithinRange(const Action& action) {
    const auto* fixed = std::get_if<action::Fixed>(&action);
    return !fixed || (fixed->speed >= 0 && fixed->speed <= 1);
}

void check(const BridgeState& state, Date now) {
    precondition(Bridge::fits(state), "a state that nobody hears");
    precondition(isWithinRange(state.selection), "a selection beyond the fans");
    precondition(!state.timerAction || isWithinRange(*state.timerAction), "a timer beyond them");
    precondition(state.timerAction.has_value() == state.timerEnds.has_value(), "half a timer");
    precondition(!state.timerEnds || *state.timerEnds <= now + Agent::longestTimer,
                 "a timer without an end");
}

} // namespace

/// An agent on a controller that answers rubbish, with whatever is stored and whatever it is told.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedBytes input(data, size);
    RubbishRegistry registry(input);
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    SimulatedClock clock;
    for (const char* key : {"profiles", "selection", "launchAtLogin"}) {
        if (input.below(4) == 0)
            preferences.setString(key, input.text(80));
        if (input.below(2) == 0) {
            const std::string text = input.text(80);
            const auto* first = reinterpret_cast<const std::byte*>(text.data());
            preferences.setData(key, {first, first + text.size()});
        }
    }
    std::size_t states = 0;
    const ObserverToken token = Bridge(center).onState([&](const BridgeState& state) {
        ++states;
        check(state, clock.now());
    });
    try {
        SMC smc(registry);
        Agent agent({smc, center, preferences, clock,
                     [&] { return std::optional(static_cast<double>(input.byte())); }});
        precondition(states == 1, "an agent tells its state when it starts");
        while (!input.empty()) {
            if (input.below(3) == 0) {
                const std::string text = input.text(200);
                const bool understood =
                    std::holds_alternative<BridgeCommand>(decode<BridgeCommand>(text));
                states = 0;
                center.post(Bridge::commandName, text);
                precondition(states == (understood ? 1 : 0), "one state for every command");
            } else {
                clock.advance(1);
                agent.tick();
            }
        }
    } catch (const SMCError& error) {
        // The connection could not be opened; later the agent answers for every failure itself.
        precondition(states == 0, "the agent let an error of the controller through");
    }
    return 0;
}
