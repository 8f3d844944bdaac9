#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string_view>

namespace tervale {

/// The agent's log: one line an event, to a stream. Whoever makes many lines in a short time does
/// not fill a disk with them. Without the toolkit, since the guard writes too.
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

    AgentLog(std::FILE* stream, Level most, Form form) : stream(stream), most(most), form(form) {}

    /// `now` in seconds of a steady clock.
    void write(Level level, std::string_view line, double now);

  private:
    void put(Level level, std::string_view line) const;

    std::FILE* stream;
    Level most;
    Form form;
    double intervalBegan = -interval;
    int written = 0;
    int leftOut = 0;
};

} // namespace tervale
