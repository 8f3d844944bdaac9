#pragma once

#include "Profiles/Profile.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <variant>
#include <vector>

namespace tervale {

namespace choice {
struct Profile {
    UUID id;
    bool operator==(const Profile&) const = default;
};
struct Automatic {
    bool operator==(const Automatic&) const = default;
};
/// At a speed that is no part of the choice.
struct Fixed {
    bool operator==(const Fixed&) const = default;
};
} // namespace choice

/// The editing of a schedule's time windows; knows no toolkit. Windows are never sorted, and
/// whether they make sense is not its business. An index beyond the windows is a programming error.
struct ScheduleEditing {
    /// What the picker of a window's action chooses among.
    using Choice = std::variant<choice::Profile, choice::Automatic, choice::Fixed>;

    enum class Edge { start, end };
    struct ClockTime {
        int hour = 0;
        int minute = 0;
        bool operator==(const ClockTime&) const = default;
    };

    /// The speed of a window that has just been set to a fixed one.
    static constexpr double initialSpeed = 0.5;
    /// The first window of an empty schedule.
    static constexpr std::int64_t firstStart = 540;
    /// The length of a new window.
    static constexpr std::int64_t newLength = 60;

    std::vector<Window> windows;

    Choice choice(std::size_t index) const;
    /// What is chosen already keeps its speed.
    void setChoice(std::size_t index, const Choice& choice);
    /// The time of day; a stored one that is outside the day is brought into it.
    ClockTime time(std::size_t index, Edge edge) const;
    void setTime(std::size_t index, Edge edge, ClockTime time);
    /// Makes the window's speed fixed, at whole percent.
    void setSpeed(std::size_t index, double fraction);

    /// Appends an hour that starts where the last window ends.
    void add();
    void remove(std::size_t index);

    bool operator==(const ScheduleEditing&) const = default;
};

/// What is to be done to a schedule's windows. An index beyond them is a programming error.
namespace windowEdit {
struct Add {
    bool operator==(const Add&) const = default;
};
struct Remove {
    std::size_t index = 0;
    bool operator==(const Remove&) const = default;
};
struct SetTime {
    std::size_t index = 0;
    ScheduleEditing::Edge edge = ScheduleEditing::Edge::start;
    ScheduleEditing::ClockTime time;
    bool operator==(const SetTime&) const = default;
};
struct SetChoice {
    std::size_t index = 0;
    ScheduleEditing::Choice choice;
    bool operator==(const SetChoice&) const = default;
};
struct SetSpeed {
    std::size_t index = 0;
    double fraction = 0;
    bool operator==(const SetSpeed&) const = default;
};
} // namespace windowEdit

using WindowEdit = std::variant<windowEdit::Add, windowEdit::Remove, windowEdit::SetTime,
                                windowEdit::SetChoice, windowEdit::SetSpeed>;

/// Tells whether the windows are others now.
bool perform(const WindowEdit& edit, std::vector<Window>& windows);

} // namespace tervale

template <>
struct std::hash<tervale::choice::Profile> {
    std::size_t operator()(const tervale::choice::Profile& choice) const noexcept;
};
template <>
struct std::hash<tervale::choice::Automatic> {
    std::size_t operator()(const tervale::choice::Automatic&) const noexcept { return 1; }
};
template <>
struct std::hash<tervale::choice::Fixed> {
    std::size_t operator()(const tervale::choice::Fixed&) const noexcept { return 2; }
};
