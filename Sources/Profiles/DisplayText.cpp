#include "Profiles/DisplayText.h"

#include "Base/Overloaded.h"
#include "Base/Precondition.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace tervale {

namespace {

/// A whole number in decimal digits.
std::string digits(double whole) {
    std::string text(std::numeric_limits<double>::max_exponent10 + 3, '\0');
    const int length = std::snprintf(text.data(), text.size(), "%.0f", whole);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

} // namespace

std::string displayText::celsius(double value) {
    return std::to_string(roundedToInteger(value)) + " °C";
}

std::string displayText::percent(double fraction) {
    // Any number can arrive here from outside. Adding zero turns a negative zero into zero.
    return digits(std::round(fraction * 100.0) + 0.0) + "%";
}

std::string displayText::nameOf(const Action& action, std::span<const Profile> profiles) {
    return std::visit(overloaded{
                          [](const action::Automatic&) -> std::string { return "Automatic"; },
                          [](const action::Fixed& fixed) {
                              return fixed.speed >= 1.0 ? "Max" : percent(fixed.speed);
                          },
                          [profiles](const action::Profile& chosen) {
                              const Profile* profile = findProfile(profiles, chosen.id);
                              return profile ? profile->name : "Missing profile";
                          },
                      },
                      action);
}

std::string displayText::fan(std::int64_t index) {
    return "Fan " + std::to_string(index + 1);
}

} // namespace tervale
