#pragma once

#include <optional>
#include <string>

namespace tervale {

/// Whether a program that the window needs beside it is there.
enum class Presence { missing, there };

/// The commands that start what is missing, in one line for the terminal, where neither the machine
/// nor the agent is the system's own; nothing where both are there.
std::optional<std::string> startHint(Presence controller, Presence agent);

} // namespace tervale
