#include "JSON/JSONWriter.h"

#include "JSON/JSONError.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace tervale {

void JSONWriter::boolean(bool value) {
    text += value ? "true" : "false";
}

void JSONWriter::integer(std::int64_t value) {
    text += std::to_string(value);
}

void JSONWriter::number(double value) {
    if (!std::isfinite(value))
        throw EncodingError("A number is not finite.");
    constexpr double exactLimit = 9007199254740992.0;
    if (value == 0 && std::signbit(value))
        text += "-0";
    else if (std::trunc(value) == value && std::abs(value) <= exactLimit)
        integer(static_cast<std::int64_t>(value));
    else
        text += nlohmann::json(value).dump();
}

void JSONWriter::string(std::string_view value) {
    const std::string quoted =
        nlohmann::json(value).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    for (const char character : quoted) {
        if (character == '/')
            text += '\\';
        text += character;
    }
}

void JSONWriter::key(std::string_view name) {
    separate();
    text += '"';
    text += name;
    text += "\":";
}

void JSONWriter::open(char bracket) {
    text += bracket;
}

void JSONWriter::close(char bracket) {
    text += bracket;
}

void JSONWriter::separate() {
    // A comma, unless this is the first in its brackets. No value ends in an opening bracket: that
    // of a string is followed by its closing quote.
    if (text.back() != '{' && text.back() != '[')
        text += ',';
}

} // namespace tervale
