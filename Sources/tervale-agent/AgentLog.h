#pragma once

#include "Platform/LineWriter.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tervale {

/// The agent's log: one line an event, to a file. Whoever makes many lines in a short time does not
/// fill a disk with them, and nothing that is logged waits for who reads it. How many lines were
/// left out is told in the end at the latest. Without the toolkit, since the guard writes too.
class AgentLog {
  public:
    enum class Level : std::uint8_t { error, warning, info, debug };
    enum class Form : std::uint8_t {
        /// With the program's name, for a terminal.
        terminal,
        /// With the level's number, as the journal takes it.
        journal,
    };

    /// So many lines are written within so many seconds; the others are counted.
    static constexpr int mostLines = 20;
    static constexpr double interval = 10;

    static std::optional<Level> levelNamed(std::string_view name);
    static std::string_view nameOf(Level level);
    /// On standard error.
    static AgentLog standard(Level most);

    /// `file` is a descriptor that stays open as long as the process.
    AgentLog(int file, Level most, Form form);
    ~AgentLog();
    AgentLog(const AgentLog&) = delete;
    AgentLog& operator=(const AgentLog&) = delete;

    /// `now` in seconds of a steady clock.
    void write(Level level, std::string_view line, double now);
    /// Why the program ends: an error, written at any level and however many lines there were, on a
    /// terminal as all programs complain.
    void complain(std::string_view line);
    /// Waits so long until every line is written; whether it is.
    bool drain(std::chrono::milliseconds patience) const { return lines.drain(patience); }

  private:
    void put(Level level, std::string_view line);
    /// Tells of lines that were left out since it was told last.
    void tellLeftOut();

    Level most;
    Form form;
    LineWriter lines;
    double intervalBegan = -interval;
    int written = 0;
    int leftOut = 0;
};

} // namespace tervale
