#pragma once

#include "Machine/MachineChoice.h"
#include "Profiles/LoadReading.h"
#include "SMC/IORegistry.h"
#include "SMC/ReadOnlyRegistry.h"
#include "Simulation/Simulation.h"

#include <memory>
#include <optional>
#include <string>

namespace tervale {

/// The machine whose fans the agent owns. A simulated one lives in the process, and time passes on
/// it only as it is told.
class AgentMachine {
  public:
    enum class Writing : unsigned char { allowed, pretended };

    /// Throws `NoSuchMachine`.
    AgentMachine(const MachineChoice& choice, Writing writing);
    AgentMachine(const AgentMachine&) = delete;
    AgentMachine& operator=(const AgentMachine&) = delete;

    IORegistry& registry();
    /// The processor's: of a simulated Mac, in another process too, its own. To be asked for once
    /// the controller is there.
    LoadReading load();
    /// In seconds; other machines than a simulated one need not be told.
    void advance(double seconds);
    /// Whether fans stay as they are when the process goes.
    bool outlivesProcess() const { return !simulation; }

  private:
    std::shared_ptr<IORegistry> outside;
    std::optional<Simulation> simulation;
    std::optional<ReadOnlyRegistry> readOnly;
};

} // namespace tervale
