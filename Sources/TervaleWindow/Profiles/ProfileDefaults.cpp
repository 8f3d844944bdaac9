#include "TervaleWindow/Profiles/ProfileDefaults.h"

namespace tervale::ProfileDefaults {

Curve temperatureCurve() {
    return {{{40, 0.1}, {60, 0.35}, {80, 0.75}, {95, 1.0}}};
}

Curve loadCurve() {
    return {{{10, 0.0}, {50, 0.4}, {90, 1.0}}};
}

std::vector<Window> schedule() {
    return {{1380, 420, action::Automatic{}}};
}

} // namespace tervale::ProfileDefaults
