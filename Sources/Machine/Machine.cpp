#include "Machine/Machine.h"

#include "Base/Overloaded.h"
#include "Machine/SimulatedHost.h"
#include "Machine/SimulationTimer.h"
#include "Platform/Platform.h"
#include "Profiles/Clock.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Profiles/Preferences.h"
#include "Simulation/Simulation.h"

#include <QCoreApplication>

#include <chrono>
#include <utility>

namespace tervale {

namespace {

using namespace std::chrono_literals;

/// A simulated Mac and its agent in real time, and what they live on. What the agent stores is
/// there again on the next start.
struct SimulationInProcess {
    SystemClock clock;
    InProcessNotificationCenter center{&runOnMainThread};
    std::unique_ptr<Preferences> preferences = makePreferences("tervale-simulation");
    Simulation simulation{asBusyAsTheHost(), center, *preferences, clock};
    SimulationTimer timer{simulation, 1s};
};

Machine simulatedMachine() {
    const auto shared = std::make_shared<SimulationInProcess>();
    SimulatedMac& mac = shared->simulation.mac();
    return {std::shared_ptr<IORegistry>(shared, &mac),
            std::shared_ptr<NotificationCenter>(shared, &shared->center),
            [shared, &mac] { return mac.load(); }};
}

/// With the agent of the user's session, or none where there is no channel to other programs.
Machine machineWith(std::shared_ptr<IORegistry> registry) {
    std::shared_ptr<NotificationCenter> center = makeNotificationCenter();
    if (!center)
        center = std::make_shared<InProcessNotificationCenter>(&runOnMainThread);
    return {std::move(registry), std::move(center), makeProcessorLoad()};
}

} // namespace

Machine makeMachine(const MachineChoice& choice) {
    return std::visit(
        overloaded{
            [](const machineChoice::System&) { return machineWith(makeRegistry()); },
            [](const machineChoice::Remote& remote) {
                std::shared_ptr<IORegistry> registry = makeRemoteRegistry(remote.socket);
                if (!registry)
                    throw NoSuchMachine("This system serves no controllers on sockets.");
                return machineWith(std::move(registry));
            },
            [](const machineChoice::Simulated&) { return simulatedMachine(); },
        },
        choice);
}

void runOnMainThread(std::function<void()> task) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(task), Qt::QueuedConnection);
}

} // namespace tervale
