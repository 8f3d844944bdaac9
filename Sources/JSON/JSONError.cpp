#include "JSON/JSONError.h"

namespace tervale {

std::string DecodingError::text() const {
    std::string place;
    for (const std::string& step : path) {
        if (!place.empty())
            place += '.';
        place += step;
    }
    return place.empty() ? description : place + ": " + description;
}

} // namespace tervale
