#pragma once

#include "Machine/Machine.h"
#include "Platform/Platform.h"
#include "Profiles/Clock.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Simulation/Simulation.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace tervale {

/// A simulated Mac and its agent in this process. They live in real time, and the Mac is as busy as
/// the machine that it runs on. What the agent stores is there again on the next start.
class SimulatedBackend final : public QObject, public Backend {
    Q_OBJECT

  public:
    SimulatedBackend();

    IORegistry& registry() override { return simulation.mac(); }
    NotificationCenter& notificationCenter() override { return center; }
    std::optional<double> processorLoad() override { return simulation.mac().load(); }

  private:
    void advance();

    SystemClock clock;
    InProcessNotificationCenter center{&Backend::runOnMainThread};
    std::unique_ptr<Preferences> preferences;
    Simulation simulation;
    QElapsedTimer sinceAdvance;
    QTimer timer;
};

} // namespace tervale
