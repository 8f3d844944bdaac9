#pragma once

#include "JSON/JSONError.h"
#include "JSON/JSONReader.h"
#include "JSON/JSONText.h"
#include "JSON/JSONWriter.h"

#include <string>
#include <string_view>
#include <utility>

namespace tervale {

/// The JSON text of a value: compact, members in the order of the type's fields, slashes escaped,
/// ill-formed UTF-8 in strings repaired. Throws `EncodingError`.
///
/// A whole number is written without a fraction. Structures are objects keyed by field; an
/// alternative is an object with one member, named after it, that holds an object with its payload
/// under `_0` and `_1`.
template <class Value>
std::string encode(const Value& value) {
    JSONWriter json;
    write(json, value);
    if (json.text.size() > maximumJSONSize)
        throw EncodingError("The text would be longer than " + std::to_string(maximumJSONSize) +
                            " bytes.");
    return std::move(json.text);
}

/// The value that a JSON text holds. No range is checked, unknown members are skipped whatever they
/// hold, and nothing is decoded in part. Of two members of the same name the first counts. More
/// than `maximumJSONDepth` levels of nesting and more than `maximumJSONSize` bytes are refused.
template <class Value>
Decoded<Value> decode(std::string_view text) {
    try {
        return JSONReader(checkedJSON(text)).as<Value>();
    } catch (DecodingFailure& failure) {
        return std::move(failure.error);
    }
}

} // namespace tervale
