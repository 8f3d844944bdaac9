#pragma once

#include <optional>
#include <string>
#include <variant>

namespace tervale {

namespace machineChoice {
/// The machine that the program runs on.
struct System {
    bool operator==(const System&) const = default;
};
/// The controller that another process serves on a socket, with this machine's own agent.
struct Remote {
    std::string socket;
    bool operator==(const Remote&) const = default;
};
/// A simulated Mac with an agent of its own, within the process.
struct Simulated {
    bool operator==(const Simulated&) const = default;
};
} // namespace machineChoice

/// Which machine a program was told to use.
using MachineChoice =
    std::variant<machineChoice::System, machineChoice::Remote, machineChoice::Simulated>;

/// What is wrong with the options that choose a machine, in one line.
struct MachineChoiceFault {
    std::string line;
    bool operator==(const MachineChoiceFault&) const = default;
};

/// The choice that the options of the window and of tervalectl come to: whether --simulate was
/// given, and the value of --socket, if it was.
std::variant<MachineChoice, MachineChoiceFault>
chooseMachine(bool simulate, const std::optional<std::string>& socket);

} // namespace tervale
