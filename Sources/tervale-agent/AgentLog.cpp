#include "tervale-agent/AgentLog.h"

#include "Base/Terminal.h"
#include "Platform/ServiceManager.h"

#include <array>
#include <cstdio>
#include <utility>

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

constexpr std::string_view program = "tervale-agent";

const Grade& gradeOf(AgentLog::Level level) {
    return grades.at(static_cast<std::size_t>(level));
}

std::string textOf(AgentLog::Form form, AgentLog::Level level, std::string_view line) {
    const Grade& grade = gradeOf(level);
    const std::string begin = form == AgentLog::Form::journal
                                  ? std::string(grade.prefix)
                                  : std::string(program) + ": " + std::string(grade.word);
    return begin + printable(line) + '\n';
}

std::string countOf(int leftOut) {
    return std::to_string(leftOut) + (leftOut == 1 ? " line was" : " lines were") + " left out.";
}

} // namespace

std::optional<AgentLog::Level> AgentLog::levelNamed(std::string_view name) {
    for (std::size_t i = 0; i < grades.size(); ++i)
        if (grades[i].name == name)
            return static_cast<Level>(i);
    return std::nullopt;
}

std::string_view AgentLog::nameOf(Level level) {
    return gradeOf(level).name;
}

AgentLog AgentLog::standard(Level most) {
    return {::fileno(stderr), most, standardErrorIsJournal() ? Form::journal : Form::terminal};
}

AgentLog::AgentLog(int file, Level most, Form form)
    : most(most),
      form(form),
      lines(file, [form](int lost) { return textOf(form, Level::warning, countOf(lost)); }) {}

AgentLog::~AgentLog() {
    tellLeftOut();
}

void AgentLog::write(Level level, std::string_view line, double now) {
    if (level > most)
        return;
    if (now - intervalBegan >= interval || now < intervalBegan) {
        tellLeftOut();
        intervalBegan = now;
        written = 0;
    }
    if (written == mostLines) {
        ++leftOut;
        return;
    }
    ++written;
    put(level, line);
}

void AgentLog::complain(std::string_view line) {
    if (form == Form::terminal)
        lines.write(complaint(program, line));
    else
        put(Level::error, line);
}

void AgentLog::put(Level level, std::string_view line) {
    lines.write(textOf(form, level, line));
}

void AgentLog::tellLeftOut() {
    if (const int untold = std::exchange(leftOut, 0); untold > 0)
        put(Level::warning, countOf(untold));
}

} // namespace tervale
