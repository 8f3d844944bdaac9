#pragma once

#include "Machine/MachineChoice.h"
#include "tervalectl/CommandTable.h"

#include <QStringList>

#include <string>
#include <variant>

namespace tervale::ctl {

/// What the program's arguments ask for.
struct CommandLine {
    struct Run {
        /// A row of the table.
        const Command* command = nullptr;
        Parameters parameters;
        /// Write JSON rather than tables.
        bool json = false;
        /// How long to wait for the agent, in seconds.
        double timeout = 2;
        MachineChoice machine{};
        bool operator==(const Run&) const = default;
    };
    struct Print {
        std::string text;
        bool operator==(const Print&) const = default;
    };
    struct ShowVersion {
        bool operator==(const ShowVersion&) const = default;
    };
    /// What is wrong with the arguments, in one line.
    struct Refuse {
        std::string line;
        bool operator==(const Refuse&) const = default;
    };
    using Request = std::variant<Run, Print, ShowVersion, Refuse>;

    /// `line` begins with the program's name.
    static Request parse(const QStringList& line);
};

} // namespace tervale::ctl
