#include "tervale-simulator/Simulator.h"

#include "Platform/Linux/ControllerSocket.h"
#include "Platform/Platform.h"
#include "Platform/RuntimeFolder.h"

#include <chrono>
#include <cstdio>

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

Simulator::Simulator(const SimulatorCommandLine::Run& run, NotificationCenter& center,
                     Preferences& preferences)
    : simulated(withHostLoad(run.mac)),
      timer(simulated, interval, run.speed) {
    // The place is taken before the agent speaks, so that of two simulators the second is never
    // heard.
    if (run.controller)
        serve(run.socket);
    if (run.agent)
        simulated.startAgent(center, preferences, clock);
}

Simulator::~Simulator() {
    end();
}

void Simulator::end() {
    timer.stop();
    server.reset();
    if (const auto error = simulated.endAgent())
        std::fprintf(stderr, "tervale-simulator: The fans were not given back: %s\n",
                     error->c_str());
}

void Simulator::serve(const std::optional<std::filesystem::path>& chosenPath) {
    path = chosenPath.value_or(controllerSocket::defaultPath());
    // The server checks a folder that the user chose.
    if (!chosenPath)
        makePrivateFolder(path->parent_path());
    server = std::make_unique<SocketServer>(simulated.mac(), *path);
}

} // namespace tervale
