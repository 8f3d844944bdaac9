#include "tervale-agent/AgentLog.h"

#include "Base/Terminal.h"
#include "Platform/ServiceManager.h"

#include <array>
#include <string>

namespace tervale {

namespace {

struct Grade {
    std::string_view name;
    /// As the system's log counts.
    std::string_view prefix;
    std::string_view word;
};

constexpr std::array grades{Grade{"error", "<3>", "error: "}, Grade{"warning", "<4>", "warning: "},
                            Grade{"info", "<6>", ""}, Grade{"debug", "<7>", ""}};

} // namespace

std::optional<AgentLog::Level> AgentLog::levelNamed(std::string_view name) {
    for (std::size_t i = 0; i < grades.size(); ++i)
        if (grades[i].name == name)
            return static_cast<Level>(i);
    return std::nullopt;
}

std::string_view AgentLog::nameOf(Level level) {
    return grades[static_cast<std::size_t>(level)].name;
}

AgentLog AgentLog::standard(Level most) {
    return {stderr, most, standardErrorIsJournal() ? Form::journal : Form::terminal};
}

void AgentLog::write(Level level, std::string_view line, double now) {
    if (level > most)
        return;
    if (now - intervalBegan >= interval || now < intervalBegan) {
        if (leftOut > 0)
            put(Level::warning, std::to_string(leftOut) + " lines were left out.");
        intervalBegan = now;
        written = 0;
        leftOut = 0;
    }
    if (written == mostLines) {
        ++leftOut;
        return;
    }
    ++written;
    put(level, line);
}

void AgentLog::put(Level level, std::string_view line) const {
    const Grade& grade = grades[static_cast<std::size_t>(level)];
    std::string text(form == Form::journal ? grade.prefix : "tervale-agent: ");
    if (form == Form::terminal)
        text += grade.word;
    text += printable(line) + '\n';
    // There is no place to tell that the log cannot be written.
    static_cast<void>(print(stream, text));
}

} // namespace tervale
