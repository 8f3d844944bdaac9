#pragma once

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <sys/types.h>

namespace tervale {

/// What the kernel tells of a process.
struct ProcessState {
    /// 'Z' once it is dead, until its parent takes note of that.
    char state = 0;
    pid_t parent = 0;
};

/// Nothing once there is no such process.
inline std::optional<ProcessState> stateOf(std::int64_t process) {
    // "1234 (name) S 1233": its number, name, state and parent.
    std::string text;
    std::getline(std::ifstream("/proc/" + std::to_string(process) + "/stat"), text);
    const std::size_t name = text.rfind(") ");
    if (name == std::string::npos || text.size() < name + 5)
        return std::nullopt;
    return ProcessState{text[name + 2],
                        static_cast<pid_t>(std::strtol(text.c_str() + name + 4, nullptr, 10))};
}

inline bool isGone(std::int64_t process) {
    const auto now = stateOf(process);
    return !now || now->state == 'Z';
}

} // namespace tervale
