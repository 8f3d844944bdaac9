#include "tervale-simulator/Simulator.h"

#include "Platform/Linux/ControllerSocket.h"
#include "Platform/Platform.h"
#include "Platform/RuntimeFolder.h"
#include "SMC/SMC.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace tervale {

using namespace std::chrono_literals;

namespace {

// Whoever polls the controller once a second finds new values each time.
constexpr auto interval = 200ms;

/// How often the socket is looked after.
constexpr auto lookInterval = 500ms;

SimulatedMacOptions withHostLoad(SimulatedMacOptions options) {
    options.hostLoad = makeProcessorLoad();
    return options;
}

} // namespace

Simulator::Simulator(const SimulatorCommandLine::Run& run, Report tellPeople)
    : simulated(withHostLoad(run.mac)),
      isUsualPlace(!run.socket),
      path(pathOf(run)),
      report(std::move(tellPeople)),
      timer(simulated, interval, run.speed) {
    serve();
    for (const auto& fault : run.faults)
        inject(fault);
    QObject::connect(&look, &QTimer::timeout, &look, [this] { lookAfterSocket(); });
    look.start(lookInterval);
}

void Simulator::serve() {
    if (isUsualPlace)
        makePrivateFolder(path.parent_path());
    servers.push_back(std::make_unique<SocketServer>(simulated.mac(), path));
}

void Simulator::lookAfterSocket() {
    std::error_code error;
    const auto found = std::filesystem::symlink_status(path, error);
    // What somebody put in its place is left alone.
    if (found.type() == std::filesystem::file_type::not_found)
        serveAgain();
    const SocketServer* last = servers.back().get();
    std::erase_if(servers, [last](const auto& server) {
        return server.get() != last && server->clientCount() == 0;
    });
}

void Simulator::serveAgain() {
    std::string line = "The socket was removed. It is there again.";
    try {
        serve();
    } catch (const SocketServer::Refused& refusal) {
        line = refusal.what();
        // It goes on failing in the same way.
        if (line == lastRefusal)
            return;
        lastRefusal = line;
    }
    if (report)
        report(line);
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
