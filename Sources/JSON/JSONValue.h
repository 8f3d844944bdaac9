#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tervale {

struct JSONMember;

struct JSONNull {};
using JSONArray = std::vector<struct JSONValue>;
/// In the order of the text, members of the same name included.
using JSONObject = std::vector<JSONMember>;

/// A parsed JSON text. A number is an integer if it is whole and fits, however it is spelled, and a
/// finite double otherwise. A negative zero, and a zero spelled with a fraction, are doubles.
struct JSONValue {
    std::variant<JSONNull, bool, std::int64_t, double, std::string, JSONArray, JSONObject> value;
};

struct JSONMember {
    std::string name;
    JSONValue value;
};

/// The limits of `parseJSON`, so that no text exhausts the stack or the memory.
inline constexpr std::size_t maximumJSONDepth = 512;
inline constexpr std::size_t maximumJSONSize = std::size_t{16} * 1024 * 1024;

/// Strict JSON in UTF-8, with or without a byte order mark. Throws `DecodingFailure`.
JSONValue parseJSON(std::string_view text);

} // namespace tervale
