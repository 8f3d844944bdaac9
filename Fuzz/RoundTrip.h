#pragma once

#include "Base/Precondition.h"
#include "JSON/JSON.h"
#include "Profiles/Bridge.h"

#include <cstddef>
#include <cstdint>

namespace tervale {

/// Stops the process unless the text is refused with a reason, or holds a value that encodes to a
/// text that holds the same value.
template <class Value>
void checkRoundTrip(const std::uint8_t* data, std::size_t size) {
    const Decoded<Value> result = decode<Value>({reinterpret_cast<const char*>(data), size});
    const auto* value = std::get_if<Value>(&result);
    if (!value) {
        precondition(!std::get<DecodingError>(result).text().empty(), "an error without a reason");
        return;
    }
    const std::string text = encode(*value);
    const Decoded<Value> again = decode<Value>(text);
    precondition(again == result, "a value changed on the way to text and back");
    precondition(encode(std::get<Value>(again)) == text, "one value has two texts");
}

} // namespace tervale
