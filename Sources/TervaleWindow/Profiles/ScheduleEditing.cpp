#include "TervaleWindow/Profiles/ScheduleEditing.h"

#include "Base/Overloaded.h"
#include "Base/Precondition.h"

#include <cmath>
#include <utility>

namespace tervale {

namespace {

constexpr std::int64_t minutesPerHour = 60;

std::int64_t intoDay(std::int64_t minute) {
    const std::int64_t rest = minute % Profile::minutesPerDay;
    return rest < 0 ? rest + Profile::minutesPerDay : rest;
}

template <class Windows>
auto& windowAt(Windows& windows, std::size_t index) {
    precondition(index < windows.size(), "a schedule has no window of that index");
    return windows[index];
}

} // namespace

ScheduleEditing::Choice ScheduleEditing::choice(std::size_t index) const {
    return std::visit(
        overloaded{
            [](const action::Automatic&) -> Choice { return choice::Automatic{}; },
            [](const action::Fixed&) -> Choice { return choice::Fixed{}; },
            [](const action::Profile& profile) -> Choice { return choice::Profile{profile.id}; },
        },
        windowAt(windows, index).action);
}

void ScheduleEditing::setChoice(std::size_t index, const Choice& choice) {
    if (choice == this->choice(index))
        return;
    windowAt(windows, index).action = std::visit(
        overloaded{
            [](const choice::Profile& profile) -> Action { return action::Profile{profile.id}; },
            [](const choice::Automatic&) -> Action { return action::Automatic{}; },
            [](const choice::Fixed&) -> Action { return action::Fixed{initialSpeed}; },
        },
        choice);
}

ScheduleEditing::ClockTime ScheduleEditing::time(std::size_t index, Edge edge) const {
    const Window& window = windowAt(windows, index);
    const std::int64_t minute = intoDay(edge == Edge::start ? window.start : window.end);
    return {static_cast<int>(minute / minutesPerHour), static_cast<int>(minute % minutesPerHour)};
}

void ScheduleEditing::setTime(std::size_t index, Edge edge, ClockTime time) {
    Window& window = windowAt(windows, index);
    (edge == Edge::start ? window.start : window.end) = time.hour * minutesPerHour + time.minute;
}

void ScheduleEditing::setSpeed(std::size_t index, double fraction) {
    windowAt(windows, index).action = action::Fixed{std::round(fraction * 100) / 100};
}

void ScheduleEditing::add() {
    if (windows.empty()) {
        windows.push_back({firstStart, firstStart + newLength, action::Automatic{}});
        return;
    }
    const std::int64_t start = windows.back().end;
    windows.push_back({start, intoDay(intoDay(start) + newLength), action::Automatic{}});
}

void ScheduleEditing::remove(std::size_t index) {
    windowAt(windows, index);
    windows.erase(windows.begin() + static_cast<std::ptrdiff_t>(index));
}

namespace {

/// Changes one window. True if it changed.
template <class Change>
bool change(ScheduleEditing& editing, std::size_t index, const Change& change) {
    const Window before = windowAt(editing.windows, index);
    change();
    return editing.windows[index] != before;
}

bool perform(const WindowEdit& edit, ScheduleEditing& editing) {
    return std::visit(overloaded{
                          [&editing](const windowEdit::Add&) {
                              editing.add();
                              return true;
                          },
                          [&editing](const windowEdit::Remove& remove) {
                              editing.remove(remove.index);
                              return true;
                          },
                          [&editing](const windowEdit::SetTime& set) {
                              return change(editing, set.index, [&] {
                                  editing.setTime(set.index, set.edge, set.time);
                              });
                          },
                          [&editing](const windowEdit::SetChoice& set) {
                              return change(editing, set.index,
                                            [&] { editing.setChoice(set.index, set.choice); });
                          },
                          [&editing](const windowEdit::SetSpeed& set) {
                              return change(editing, set.index,
                                            [&] { editing.setSpeed(set.index, set.fraction); });
                          },
                      },
                      edit);
}

} // namespace

bool perform(const WindowEdit& edit, std::vector<Window>& windows) {
    ScheduleEditing editing{std::move(windows)};
    const bool changed = perform(edit, editing);
    windows = std::move(editing.windows);
    return changed;
}

} // namespace tervale

std::size_t std::hash<tervale::choice::Profile>::operator()(
    const tervale::choice::Profile& choice) const noexcept {
    return std::hash<tervale::UUID>()(choice.id);
}
