#pragma once

#include "Base/Terminal.h"

#include <exception>
#include <string>
#include <utility>

namespace tervale {

/// How the program ends.
enum class ExitStatus {
    done = exitStatus::done,
    /// The agent did not take a command, a file or the machine could not be read, or a profile has
    /// problems.
    refused = exitStatus::failure,
    wrongUsage = exitStatus::wrongUsage,
    noAnswer = 3,
};

/// Ends a command.
struct Failure : std::exception {
    ExitStatus status;
    /// One line for people.
    std::string line;

    Failure(ExitStatus status, std::string line) : status(status), line(std::move(line)) {}
    const char* what() const noexcept override { return line.c_str(); }
};

/// The failure of a command that was understood and cannot be performed.
inline Failure refusal(std::string line) {
    return {ExitStatus::refused, std::move(line)};
}

} // namespace tervale
