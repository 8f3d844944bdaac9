#pragma once

#include "TervaleWindow/Model/Model.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace tervale {

/// A fixed speed that is offered by name.
struct SpeedPreset {
    const char* title;
    /// Of the fan's range.
    double fraction;
};
inline constexpr std::array<SpeedPreset, 4> speedPresets{
    {{"25%", 0.25}, {"50%", 0.5}, {"75%", 0.75}, {"Max", 1.0}}};

struct TimerDuration {
    const char* title;
    double seconds;
};
inline constexpr std::array<TimerDuration, 4> timerDurations{
    {{"15 minutes", 900}, {"30 minutes", 1800}, {"1 hour", 3600}, {"2 hours", 7200}}};

/// Something that a timer can run.
struct TimerTarget {
    QString title;
    Action action;
};

/// Whether the agent runs this action, and no timer in its place.
bool isSelected(const Model& model, const Action& action);

/// The presets, automatic control, and every profile in the agent's order.
std::vector<TimerTarget> timerTargets(const Model& model);

/// The action that the slider stands for: a fixed speed in whole percent, halves away from zero.
Action fixedAt(double sliderValue);

/// What runs now: the timer's action while a timer runs, otherwise the selection.
const Action& running(const Model& model);

/// The heading's second line: the agent's status, cut after `longestStatus`, or a sentence on what
/// runs.
QString subtitle(const Model& model);

/// The line on a running timer.
struct TimerLine {
    /// The name of what runs now.
    QString runs;
    /// The timer's end as a time of day in the user's short style.
    QString until;
    /// The name of what runs then.
    QString follows;

    QString text() const;
    bool operator==(const TimerLine&) const = default;
};
/// Nothing while no timer runs.
std::optional<TimerLine> timerLine(const Model& model);

} // namespace tervale
