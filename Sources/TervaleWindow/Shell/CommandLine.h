#pragma once

#include "Machine/MachineChoice.h"
#include "TervaleWindow/Shell/Pane.h"

#include <QStringList>

#include <variant>

namespace tervale {

/// What the program's arguments ask for.
struct CommandLine {
    struct OpenWindow {
        MachineChoice machine{};
        Pane pane = Pane::overview;
        bool operator==(const OpenWindow&) const = default;
    };
    struct ShowHelp {
        bool operator==(const ShowHelp&) const = default;
    };
    struct ShowVersion {
        bool operator==(const ShowVersion&) const = default;
    };
    /// What is wrong with the arguments, in one line.
    struct Refuse {
        QString line;
        bool operator==(const Refuse&) const = default;
    };
    using Request = std::variant<OpenWindow, ShowHelp, ShowVersion, Refuse>;

    /// The system that the program runs on, as far as it passes arguments of its own.
    enum class System { macOS, other };

    /// `arguments` begin with the program's name. Those that macOS passes to the programs it opens
    /// are ignored there: a process serial number, and user defaults with their values.
    static Request parse(const QStringList& arguments, System system);
    static QString help();
};

} // namespace tervale
