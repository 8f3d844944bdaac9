#include "Machine/SimulatedHost.h"

#include "Platform/Platform.h"

namespace tervale {

SimulatedMacOptions asBusyAsTheHost() {
    SimulatedMacOptions options;
    options.scenario = Scenario::host;
    options.hostLoad = makeProcessorLoad();
    return options;
}

} // namespace tervale
