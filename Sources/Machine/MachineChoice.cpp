#include "Machine/MachineChoice.h"

namespace tervale {

std::variant<MachineChoice, MachineChoiceFault>
chooseMachine(bool simulate, const std::optional<std::string>& socket) {
    if (socket && socket->empty())
        return MachineChoiceFault{"--socket takes a path."};
    if (socket && simulate)
        return MachineChoiceFault{"--simulate and --socket exclude each other."};
    if (socket)
        return machineChoice::Remote{*socket};
    if (simulate)
        return machineChoice::Simulated{};
    return machineChoice::System{};
}

} // namespace tervale
