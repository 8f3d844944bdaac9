#include "Profiles/Hysteresis.h"

namespace tervale {

double Hysteresis::filter(double x) {
    // Negated, so that a comparison with NaN lets the reading pass.
    if (!effective || !(x <= *effective))
        effective = x;
    else if (x < *effective - band)
        effective = x + band;
    return *effective;
}

} // namespace tervale
