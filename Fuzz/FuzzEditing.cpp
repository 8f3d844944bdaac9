#include "Base/Precondition.h"
#include "FuzzedBytes.h"
#include "TervaleWindow/Profiles/CurveEditing.h"
#include "TervaleWindow/Profiles/ScheduleEditing.h"

using namespace tervale;

namespace {

constexpr ClosedRange range{0, 120};
constexpr PlotRect plot{10, 10, 240, 100};

void check(const CurveEditing& editing) {
    const auto& points = editing.curve.points;
    precondition(points.size() >= 2 && points.size() <= Profile::maxPoints, "too few or many");
    for (std::size_t index = 0; index < points.size(); ++index) {
        precondition(range.contains(points[index].x), "a point beside the plot");
        precondition(points[index].speed >= 0 && points[index].speed <= 1, "a speed of no fan");
        precondition(index == 0 || points[index].x - points[index - 1].x >= 1, "points too near");
    }
    for (const auto& held : {editing.dragging, editing.chosen})
        precondition(!held || *held < points.size(), "a point that is not there is held");
}

std::optional<CurveEdit> someCurveEdit(CurveEditing& editing, FuzzedBytes& input) {
    const auto place = [&input] {
        return PlotPoint{static_cast<double>(input.byte()) * 2 - 100,
                         static_cast<double>(input.byte()) - 60};
    };
    switch (input.below(9)) {
    case 0:
        return editing.takeHold(place(), plot);
    case 1:
    case 2:
        return editing.drag(place(), plot);
    case 3:
        editing.endDrag();
        return std::nullopt;
    case 4:
        return editing.removePoint(place(), plot);
    case 5:
        editing.choose(input.below(2) == 0 ? CurveEditing::Direction::left
                                           : CurveEditing::Direction::right);
        return std::nullopt;
    case 6:
        return editing.moveChosen(static_cast<double>(input.byte()) - 128,
                                  static_cast<double>(input.byte()) - 128);
    case 7:
        return editing.insertAfterChosen();
    default:
        return editing.removeChosen();
    }
}

void editCurve(FuzzedBytes& input) {
    CurveEditing editing{.curve = {{{30, 0.2}, {80, 0.9}}},
                         .range = range,
                         .dragging = {},
                         .chosen = {},
                         .hovered = {}};
    while (!input.empty()) {
        if (const auto edit = someCurveEdit(editing, input)) {
            Curve curve = editing.curve;
            precondition(perform(*edit, curve), "an edit that changes nothing");
            editing.follow(curve);
        }
        check(editing);
    }
}

WindowEdit someWindowEdit(std::size_t count, FuzzedBytes& input) {
    const std::size_t index = count == 0 ? 0 : input.below(count);
    switch (count == 0 ? 0 : input.below(5)) {
    case 0:
        return windowEdit::Add{};
    case 1:
        return windowEdit::Remove{index};
    case 2:
        return windowEdit::SetTime{
            index,
            input.below(2) == 0 ? ScheduleEditing::Edge::start : ScheduleEditing::Edge::end,
            {static_cast<int>(input.below(24)), static_cast<int>(input.below(60))}};
    case 3: {
        if (input.below(2) == 0)
            return windowEdit::SetChoice{index, choice::Fixed{}};
        return windowEdit::SetChoice{index, choice::Automatic{}};
    }
    default:
        return windowEdit::SetSpeed{index, static_cast<double>(input.byte()) / 255};
    }
}

void editSchedule(FuzzedBytes& input) {
    std::vector<Window> windows;
    while (!input.empty()) {
        const std::vector<Window> before = windows;
        const bool changed = perform(someWindowEdit(windows.size(), input), windows);
        precondition(changed == (windows != before), "whether it changed is told wrongly");
        for (const Window& window : windows) {
            for (const std::int64_t minute : {window.start, window.end})
                precondition(minute >= 0 && minute < Profile::minutesPerDay, "beside the day");
            const auto* fixed = std::get_if<action::Fixed>(&window.action);
            precondition(!fixed || (fixed->speed >= 0 && fixed->speed <= 1), "no fan's speed");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedBytes input(data, size);
    input.below(2) == 0 ? editCurve(input) : editSchedule(input);
    return 0;
}
