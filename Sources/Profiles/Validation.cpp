#include "Profiles/Validation.h"

#include "Base/ClosedRange.h"
#include "Base/Overloaded.h"
#include "Base/Precondition.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

namespace tervale {

namespace {

constexpr ClosedRange speeds{0, 1};
constexpr const char* speedProblem = "Speeds must be between 0% and 100%.";

/// The tab and the space separators of Unicode, in UTF-8. Line breaks are not among them.
constexpr auto whiteSpace = std::to_array<std::string_view>({
    "\t",
    " ",
    "\xC2\xA0",
    "\xE1\x9A\x80",
    "\xE2\x80\x80",
    "\xE2\x80\x81",
    "\xE2\x80\x82",
    "\xE2\x80\x83",
    "\xE2\x80\x84",
    "\xE2\x80\x85",
    "\xE2\x80\x86",
    "\xE2\x80\x87",
    "\xE2\x80\x88",
    "\xE2\x80\x89",
    "\xE2\x80\x8A",
    "\xE2\x80\xAF",
    "\xE2\x81\x9F",
    "\xE3\x80\x80",
});

/// Whether nothing is left of the text once white space is trimmed from its ends.
bool isBlank(std::string_view text) {
    while (!text.empty()) {
        const auto space = std::ranges::find_if(
            whiteSpace, [&](std::string_view each) { return text.starts_with(each); });
        if (space == whiteSpace.end())
            return false;
        text.remove_prefix(space->size());
    }
    return true;
}

bool areWithin(ClosedRange range, std::span<const CurvePoint> points, double CurvePoint::*field) {
    return std::ranges::all_of(
        points, [&](double value) { return range.contains(value); }, field);
}

using Problems = std::vector<std::string>;

Problems problems(const Curve& curve, ClosedRange range, const std::string& unit) {
    const std::vector<CurvePoint>& points = curve.points;
    Problems found;
    if (points.size() < 2 || points.size() > Profile::maxPoints)
        found.push_back("A curve needs 2 to " + std::to_string(Profile::maxPoints) + " points.");
    const auto isOutOfOrder = [](const CurvePoint& previous, const CurvePoint& point) {
        return point.x <= previous.x;
    };
    if (std::ranges::adjacent_find(points, isOutOfOrder) != points.end())
        found.emplace_back("Points must go left to right, each above the one before.");
    if (!areWithin(range, points, &CurvePoint::x))
        found.push_back("Points must be between " +
                        std::to_string(truncatedToInteger(range.lower)) + " and " +
                        std::to_string(truncatedToInteger(range.upper)) + " " + unit + ".");
    if (!areWithin(speeds, points, &CurvePoint::speed))
        found.emplace_back(speedProblem);
    return found;
}

bool isWithinDay(std::int64_t minute) {
    return minute >= 0 && minute < Profile::minutesPerDay;
}

/// Whether two windows cover the same minute of the day, by the rules of `Window::covers`.
bool overlap(std::span<const Window> windows) {
    constexpr std::int64_t day = Profile::minutesPerDay;
    // By how many windows more a minute is covered than the one before. This runs with every
    // movement of a pointer, so it must not look at each minute of each window.
    std::array<std::int64_t, day + 1> rise{};
    const auto cover = [&rise](std::int64_t from, std::int64_t to) {
        ++rise[static_cast<std::size_t>(from)];
        --rise[static_cast<std::size_t>(to)];
    };
    for (const Window& window : windows) {
        const std::int64_t start = std::clamp<std::int64_t>(window.start, 0, day);
        const std::int64_t end = std::clamp<std::int64_t>(window.end, 0, day);
        if (window.start < window.end) {
            cover(start, end);
        } else {
            cover(start, day);
            cover(0, end);
        }
    }
    std::int64_t covering = 0;
    return std::ranges::any_of(rise, [&covering](std::int64_t change) {
        covering += change;
        return covering > 1;
    });
}

std::optional<std::string> problemOfRunning(const UUID& id, std::span<const Profile> all,
                                            const UUID& own) {
    if (id == own)
        return "A schedule cannot run itself.";
    const Profile* profile = findProfile(all, id);
    if (!profile)
        return "A window runs a profile that no longer exists.";
    if (std::holds_alternative<kind::Schedule>(profile->kind))
        return "A schedule cannot run another schedule.";
    return std::nullopt;
}

std::optional<std::string> problem(const Action& action, std::span<const Profile> all,
                                   const UUID& own) {
    using Problem = std::optional<std::string>;
    return std::visit(
        overloaded{
            [](const action::Automatic&) -> Problem { return std::nullopt; },
            [](const action::Fixed& fixed) -> Problem {
                if (speeds.contains(fixed.speed))
                    return std::nullopt;
                return speedProblem;
            },
            [&](const action::Profile& profile) { return problemOfRunning(profile.id, all, own); },
        },
        action);
}

Problems problems(std::span<const Window> windows, std::span<const Profile> all, const UUID& own) {
    if (windows.empty())
        return {"Add at least one time window."};
    Problems found;
    if (std::ranges::any_of(windows, [](const Window& w) { return w.start == w.end; }))
        found.emplace_back("A window cannot start and end at the same time.");
    const auto isInDay = [](const Window& window) {
        return isWithinDay(window.start) && isWithinDay(window.end);
    };
    if (!std::ranges::all_of(windows, isInDay))
        found.emplace_back("Times must be within the day.");
    if (overlap(windows))
        found.emplace_back("Windows overlap.");
    for (const Window& window : windows) {
        if (auto fault = problem(window.action, all, own))
            found.push_back(std::move(*fault));
    }
    return found;
}

} // namespace

std::vector<std::string> problems(const Profile& profile, std::span<const Profile> all) {
    Problems found;
    if (isBlank(profile.name))
        found.emplace_back("Give the profile a name.");
    Problems ofKind =
        std::visit(overloaded{
                       [](const kind::Temperature& temperature) {
                           return problems(temperature.curve, ClosedRange{0, 120}, "°C");
                       },
                       [](const kind::Load& load) {
                           return problems(load.curve, ClosedRange{0, 100}, "%");
                       },
                       [&](const kind::Schedule& schedule) {
                           return problems(schedule.windows, all, profile.id);
                       },
                   },
                   profile.kind);
    std::ranges::move(ofKind, std::back_inserter(found));
    return found;
}

} // namespace tervale
