#pragma once

#include "Simulation/SimulatedMac.h"

#include <QStringList>

#include <filesystem>
#include <optional>
#include <variant>

namespace tervale {

/// What the arguments of the program ask for.
struct SimulatorCommandLine {
    struct Run {
        SimulatedMacOptions mac{};
        /// Seconds that pass on the Mac in one second; positive.
        double speed = 1;
        /// Whether an agent drives the fans and answers windows.
        bool agent = true;
        /// Whether the controller is served to other processes.
        bool controller = true;
        /// Where it is served, unless at the usual place.
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
