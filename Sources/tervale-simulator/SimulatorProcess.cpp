#include "tervale-simulator/SimulatorProcess.h"

#include "Platform/Linux/ControllerSocket.h"
#include "Platform/Platform.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

namespace tervale {

using namespace std::chrono_literals;

namespace {

constexpr auto interval = 200ms;
// After the machine slept, the simulated one goes on where it was.
constexpr double longestStep = 5.0;

SimulatedMacOptions withHostLoad(SimulatedMacOptions options) {
    options.hostLoad = makeProcessorLoad();
    return options;
}

} // namespace

SimulatorProcess::SimulatorProcess(const SimulatorCommandLine::Run& run, NotificationCenter& center,
                                   Preferences& preferences)
    : speed(run.speed),
      simulatedMac(withHostLoad(run.mac)),
      smc(simulatedMac) {
    // The place is taken before the agent speaks, so that of two simulators the second is never
    // heard.
    if (run.controller)
        serve(run.socket);
    if (run.agent)
        agent = std::make_unique<Agent>(Agent::Surroundings{
            smc, center, preferences, clock, [this] { return simulatedMac.load(); }});
    connect(&timer, &QTimer::timeout, this, &SimulatorProcess::advanceInRealTime);
    timer.start(interval);
    sinceAdvance.start();
}

SimulatorProcess::~SimulatorProcess() {
    end();
}

void SimulatorProcess::end() {
    timer.stop();
    server.reset();
    const auto leaving = std::exchange(agent, nullptr);
    if (!leaving)
        return;
    if (const auto error = leaving->handBack())
        std::fprintf(stderr, "tervale-simulator: The fans were not given back: %s\n",
                     error->c_str());
}

void SimulatorProcess::serve(const std::optional<std::filesystem::path>& chosenPath) {
    path = chosenPath.value_or(controllerSocket::defaultPath());
    if (!chosenPath && !controllerSocket::makePrivateFolder(path->parent_path()))
        throw SocketServer::Refused("Cannot serve in '" + path->parent_path().string() +
                                    "': it is no folder of this user's alone.");
    server = std::make_unique<SocketServer>(simulatedMac, *path);
}

void SimulatorProcess::advance(double seconds) {
    // Portions such as fifths do not add up to a second exactly.
    constexpr double rounding = 1e-9;
    while (seconds > 0) {
        const double portion = std::min(seconds, 1.0 - pending);
        simulatedMac.advance(portion);
        seconds -= portion;
        pending += portion;
        if (pending < 1.0 - rounding)
            return;
        pending = 0;
        if (agent)
            agent->tick();
    }
}

void SimulatorProcess::advanceInRealTime() {
    const auto milliseconds = static_cast<double>(sinceAdvance.restart());
    advance(std::min(milliseconds / 1000.0, longestStep) * speed);
}

} // namespace tervale
