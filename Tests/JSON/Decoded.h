#pragma once

#include "JSON/JSON.h"

#include <stdexcept>
#include <string_view>
#include <variant>

namespace tervale::test {

/// The value, or an exception with the error's text.
template <class Value>
Value decoded(std::string_view text) {
    const Decoded<Value> result = decode<Value>(text);
    if (const auto* error = std::get_if<DecodingError>(&result))
        throw std::runtime_error(error->text());
    return std::get<Value>(result);
}

/// The error, or an exception if there is none.
template <class Value>
DecodingError decodingError(std::string_view text) {
    return std::get<DecodingError>(decode<Value>(text));
}

} // namespace tervale::test
