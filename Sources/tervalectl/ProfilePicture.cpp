#include "tervalectl/ProfilePicture.h"

#include "Base/Overloaded.h"
#include "Profiles/DisplayText.h"
#include "tervalectl/CurveText.h"
#include "tervalectl/Formatting.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <vector>

namespace tervale {

namespace {

/// A file that nobody has validated may hold any number.
constexpr double largestNumber = 1e6;

std::string wholeNumber(double value, const char* unit) {
    return std::abs(value) <= largestNumber ? std::to_string(std::lround(value)) + unit : "–";
}

/// Where the curve is drawn: at its points and at each multiple of 5 between them.
std::vector<double> places(const Curve& curve) {
    constexpr int step = 5;
    std::vector<double> places;
    std::ranges::transform(curve.points, std::back_inserter(places), &CurvePoint::x);
    std::ranges::sort(places);
    if (!places.empty() && std::max(std::abs(places.front()), std::abs(places.back())) <= 1000) {
        const double last = places.back();
        for (int x = static_cast<int>(std::ceil(places.front() / step)) * step; x < last; x += step)
            places.push_back(x);
    }
    std::ranges::sort(places);
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

void print(std::ostream& out, const Curve& curve, CurveAxis axis, const TextStyle& style) {
    const bool isLoad = axis == CurveAxis::load;
    const char* title = isLoad ? "LOAD" : "TEMPERATURE";
    const char* unit = isLoad ? "%" : " °C";
    if (const std::string drawing = curveText(curve, axis, style); !drawing.empty())
        out << drawing << '\n';
    constexpr auto right = Table::Alignment::right;
    Table table(
        {{title, right}, {"SPEED", right}, {"FANS", Table::Alignment::left, barLength}, {"POINT"}});
    for (const double x : places(curve)) {
        const double speed = curve.speed(x);
        const bool isPoint =
            std::ranges::find(curve.points, x, &CurvePoint::x) != curve.points.end();
        table.add({wholeNumber(x, unit), wholeNumber(speed * 100, "%"), barText(speed),
                   isPoint ? "●" : ""});
    }
    table.print(out);
}

std::string timeOfDay(std::int64_t minute) {
    if (minute < 0 || minute > Profile::minutesPerDay)
        return "–";
    char text[48];
    std::snprintf(text, sizeof text, "%02d:%02d", static_cast<int>(minute / 60),
                  static_cast<int>(minute % 60));
    return text;
}

void print(std::ostream& out, const kind::Schedule& schedule, std::span<const Profile> profiles) {
    Table table({{"FROM"}, {"TO"}, {"ACTION"}});
    for (const Window& window : schedule.windows)
        table.add({timeOfDay(window.start), timeOfDay(window.end),
                   displayText::nameOf(window.action, profiles)});
    table.print(out);
}

} // namespace

std::string kindText(const Profile& profile) {
    return std::visit(overloaded{
                          [](const kind::Temperature& temperature) {
                              return "temperature, " + temperature.input.title();
                          },
                          [](const kind::Load&) -> std::string { return "load"; },
                          [](const kind::Schedule&) -> std::string { return "schedule"; },
                      },
                      profile.kind);
}

void printProfile(std::ostream& out, const Profile& profile, std::span<const Profile> profiles,
                  const TextStyle& style) {
    Table heading({{"PROFILE"}, {"KIND"}, {"ID"}});
    heading.add({profile.name, kindText(profile), profile.id.text()});
    heading.print(out);
    out << '\n';
    std::visit(overloaded{
                   [&](const kind::Temperature& kind) {
                       print(out, kind.curve, CurveAxis::temperature, style);
                   },
                   [&](const kind::Load& kind) { print(out, kind.curve, CurveAxis::load, style); },
                   [&](const kind::Schedule& schedule) { print(out, schedule, profiles); },
               },
               profile.kind);
}

} // namespace tervale
