#include "tervale-agent/AgentMachine.h"

#include "Base/Overloaded.h"
#include "Machine/Machine.h"
#include "Machine/SimulatedHost.h"
#include "Platform/Platform.h"
#include "Simulation/SimulatedProcessor.h"

#include <variant>

namespace tervale {

AgentMachine::AgentMachine(const MachineChoice& choice, Writing writing) {
    std::visit(
        overloaded{
            [this](const machineChoice::System&) { outside = makeRegistry(); },
            [this](const machineChoice::Remote& remote) {
                outside = makeRemoteRegistry(remote.socket);
                if (!outside)
                    throw NoSuchMachine("This system serves no controllers on sockets.");
            },
            [this](const machineChoice::Simulated&) { simulation.emplace(asBusyAsTheHost()); }},
        choice);
    if (writing == Writing::pretended)
        readOnly.emplace(registry());
}

IORegistry& AgentMachine::registry() {
    if (readOnly)
        return *readOnly;
    return simulation ? static_cast<IORegistry&>(simulation->mac()) : *outside;
}

LoadReading AgentMachine::load() {
    if (!simulation)
        return simulatedProcessor::loadOf(outside, makeProcessorLoad());
    return [this] { return simulation->mac().load(); };
}

void AgentMachine::advance(double seconds) {
    if (simulation)
        simulation->advance(seconds);
}

} // namespace tervale
