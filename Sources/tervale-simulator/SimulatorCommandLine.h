#pragma once

#include "Simulation/Fault.h"
#include "Simulation/SimulatedMac.h"

#include <QStringList>

#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tervale {

/// What the arguments of the program ask for.
struct SimulatorCommandLine {
    /// What goes wrong with a key, which the Mac may not have.
    struct KeyFault {
        std::string key;
        Fault fault;
    };
    struct Run {
        SimulatedMacOptions mac{};
        /// Seconds that pass on the Mac in one second; positive.
        double speed = 1;
        /// What goes wrong from the start.
        std::vector<KeyFault> faults{};
        /// Where the controller is served, unless at the usual place.
        std::optional<std::filesystem::path> socket;
    };
    struct ShowHelp {};
    struct ShowVersion {};
    /// What is wrong with the arguments, in one line.
    struct Refuse {
        QString line;
    };
    using Request = std::variant<Run, ShowHelp, ShowVersion, Refuse>;

    static constexpr double greatestSpeed = 1000;

    /// `arguments` begin with the program's name.
    static Request parse(const QStringList& arguments);
    static QString help();
};

} // namespace tervale
