#include "tervale-simulator/Simulator.h"

#include "Platform/Linux/ControllerSocket.h"
#include "Platform/Platform.h"
#include "Platform/RuntimeFolder.h"
#include "SMC/SMC.h"

#include <chrono>

namespace tervale {

using namespace std::chrono_literals;

namespace {

// Whoever polls the controller once a second finds new values each time.
constexpr auto interval = 200ms;

SimulatedMacOptions withHostLoad(SimulatedMacOptions options) {
    options.hostLoad = makeProcessorLoad();
    return options;
}

} // namespace

Simulator::Simulator(const SimulatorCommandLine::Run& run)
    : simulated(withHostLoad(run.mac)),
      path(pathOf(run)),
      server(simulated.mac(), path),
      timer(simulated, interval, run.speed) {
    for (const auto& fault : run.faults)
        inject(fault);
}

std::filesystem::path Simulator::pathOf(const SimulatorCommandLine::Run& run) {
    // The server checks a folder that the user chose.
    if (run.socket)
        return *run.socket;
    const std::filesystem::path usual = controllerSocket::defaultPath();
    makePrivateFolder(usual.parent_path());
    return usual;
}

void Simulator::inject(const SimulatorCommandLine::KeyFault& fault) {
    if (!SMC(simulated.mac()).exists(fault.key))
        throw NoSuchKey("This Mac has no key '" + fault.key + "'.");
    simulated.mac().inject(fault.key, fault.fault);
}

} // namespace tervale
