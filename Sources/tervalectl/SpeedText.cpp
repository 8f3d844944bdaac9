#include "tervalectl/SpeedText.h"

#include "Base/Precondition.h"

#include <cmath>

namespace tervale {

namespace {

/// Beyond it lie numbers that no fan ever meant.
constexpr double fastest = 1e9;

std::string number(double rpm) {
    return std::abs(rpm) <= fastest ? std::to_string(roundedToInteger(rpm)) : "–";
}

} // namespace

std::string speedText(double rpm) {
    return number(rpm) + " RPM";
}

std::string rangeText(const Fan& fan) {
    return number(fan.min) + "–" + number(fan.max) + " RPM";
}

} // namespace tervale
