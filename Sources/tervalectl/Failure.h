#pragma once

#include <exception>
#include <string>
#include <utility>

namespace tervale {

/// How the program ends.
enum class ExitStatus {
    done = 0,
    /// The agent did not take a command, a file or the machine could not be read, or a profile has
    /// problems.
    refused = 1,
    wrongUsage = 2,
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

/// The failure of a command that was understood and cannot be carried out.
inline Failure refusal(std::string line) {
    return {ExitStatus::refused, std::move(line)};
}

} // namespace tervale
