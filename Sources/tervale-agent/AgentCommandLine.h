#pragma once

#include "Machine/MachineChoice.h"
#include "tervale-agent/AgentLog.h"

#include <QStringList>

#include <variant>

namespace tervale {

/// What the arguments of the program ask for.
struct AgentCommandLine {
    struct Run {
        MachineChoice machine;
        /// Everything but writing to the controller.
        bool dryRun = false;
        AgentLog::Level logLevel = AgentLog::Level::info;
    };
    struct ShowHelp {};
    struct ShowVersion {};
    /// What is wrong with the arguments, in one line.
    struct Refuse {
        QString line;
    };
    using Request = std::variant<Run, ShowHelp, ShowVersion, Refuse>;

    /// `arguments` begin with the program's name.
    static Request parse(const QStringList& arguments);
    static QString help();
};

} // namespace tervale
